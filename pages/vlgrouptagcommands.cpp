// SPDX-License-Identifier: MIT
#include "pages/vlgrouptagwidget.h"

#include "dialogs/deletequestion.h"
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/groupcommands.h"
#include "pages/tilescrollarea.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "widgets/menupopup.h"

#include <itagaction.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <tagrecords.h>
#include <vlskinsetting.h>

#include <QDebug>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>

// The context menu of the categories page and what a person can do to a category.

void VLGroupTagWidget::makeMenu()
{
    m_menu = new QMenu(this);
    m_menu->setAttribute(Qt::WA_TranslucentBackground);
    m_menu->setWindowFlags(m_menu->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(m_menu, QStringLiteral("menu"));

    m_viewFilesAction =
        m_menu->addAction(tr("View Related Files"), this, [this] { carryOut([this] { viewFiles(); }); });
    m_menu->addSeparator();
    m_renameAction = m_menu->addAction(
        tr("Rename Category"), this, [this] { carryOut([this] { slotRenameGroup(m_menuGroupId, m_menuGroupName); }); });
    m_deleteAction =
        m_menu->addAction(tr("Delete Category"), this, [this] { carryOut([this] { slotDelGroup(m_menuGroupId); }); });
}

/// The host may delete the page from inside what an entry of the menu does.
void VLGroupTagWidget::carryOut(const std::function<void()>& choice)
{
    const QPointer<VLGroupTagWidget> self(this);
    ++m_choicesUnderWay;
    choice();
    if (self)
        --m_choicesUnderWay;
}

void VLGroupTagWidget::slotPopMenu(qint64 g_id, const QString& g_name)
{
    m_menuGroupId = g_id;
    m_menuGroupName = g_name;
    m_renameAction->setEnabled(g_id != taggroupid::fixed);
    m_deleteAction->setEnabled(g_id != taggroupid::fixed);
    const QPointer<VLGroupTagWidget> self(this);
    const auto provider = VLTagManagerSingleton::instance()->tagGroupProvider(g_id);
    const bool hasTags = provider && provider->tagCount(1) != 0;
    if (!self)
        return;
    m_viewFilesAction->setEnabled(hasTags);
    popUpMenuAtCursor(m_menu);
}

void VLGroupTagWidget::viewFiles()
{
    qInfo() << "VLGroupTagWidget::signalCheckGroupFiles gId:" << m_menuGroupId;
    emit signalCheckGroupFiles({m_menuGroupId});
}

void VLGroupTagWidget::slotAddGroup()
{
    auto* dialog = new VLTagModifyWidget(VLTagModifyWidget::CreateGroup, this);
    connect(dialog, &VLTagModifyWidget::signcreateGroup, this,
            [action = m_groupAction](const QString& name) { requestNewGroup(action, name); });
    openNameDialog(dialog);
}

void VLGroupTagWidget::openNameDialog(VLTagModifyWidget* dialog)
{
    connect(m_groupList, &CTagGroupShowWidgt::signalClosePopup, dialog, &QWidget::close);
    dialog->showPopup();
    emit nameDialogOpened(dialog);
}

void VLGroupTagWidget::slotSetGroupScrollValue(int value)
{
    m_groupScrollArea->verticalScrollBar()->setValue(value);
}

void VLGroupTagWidget::slotRenameGroup(qint64 g_id, const QString& g_name)
{
    auto* dialog = new VLTagModifyWidget(VLTagModifyWidget::RenameGroup, this);
    dialog->lineEdit()->setText(g_name);
    connect(dialog, &VLTagModifyWidget::signalRenameGroup, this,
            [action = m_groupAction, g_id](const QString& newName) { requestGroupName(action, g_id, newName); });
    openNameDialog(dialog);
}

void VLGroupTagWidget::slotDelGroup(qint64 g_id)
{
    const QPointer<VLGroupTagWidget> self(this);
    const auto provider = VLTagManagerSingleton::instance()->tagGroupProvider(g_id);
    const auto record = provider ? provider->groupInfo() : nullptr;
    const int tagCount = record ? provider->tagCount(1) : 0;
    if (record && self)
        askForDeletion(g_id, record->name(), tagCount);
}

void VLGroupTagWidget::askForDeletion(qint64 g_id, const QString& name, int tagCount)
{
    const QString question = tr(
        "The tag category<font color='%1'> %2 </font>is associated with<font color='%3'> %4 </font>tags，Are you sure "
        "you want to delete it?<font style='font-size:12px' color='%5'> (The tags will not be deleted.) </font>");
    auto* box = new VLMessageBox(window());
    // The host may delete the tag window alone; the answer would have no receiver.
    connect(this, &QObject::destroyed, box, &QObject::deleteLater);
    connect(box, &VLMessageBox::signalResult, this, [this, g_id](VLMessageBox::ReturnValue value) {
        if (value == VLMessageBox::Confirm)
            deleteGroup(g_id);
    });
    box->showBox(VLMessageBox::Question, tr("Delete Category"), fillDeleteQuestion(question, name, tagCount), this);
    box->setCloseButtonVisible(false);
    if (isShortenedInQuestion(question, name, tagCount))
        box->setBodyToolTip(name);
}

void VLGroupTagWidget::deleteGroup(qint64 g_id)
{
    const auto action = m_groupAction;
    if (!action)
        return;
    const QPointer<VLGroupTagWidget> self(this);
    m_groupList->removeGroup(g_id);
    requestGroupRemoval(action, g_id);
    if (self)
        selectRootGroup();
}

void VLGroupTagWidget::slotAddGroupTag(qint64 g_id, qint64 t_id)
{
    const auto action = m_tagAction;
    requestTagInGroup(action, g_id, t_id);
}
