// SPDX-License-Identifier: MIT
// What a person does with the tags of a list: the menu, the dialogs and the requests to the host.
#include "taglist/vltaggrouplistview.h"

#include "dialogs/deletequestion.h"
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/addtocategory/vlgrouplistmenu.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/tagcontextmenu.h"

#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <tagrecords.h>
#include <vleventtrack.h>

#include <QDebug>
#include <QLineEdit>
#include <QPointer>

namespace {

constexpr int createdFromTagManager = 0;  // how usage tracking names the source of a new tag
constexpr int joinFromMenu = 2;           // how usage tracking names the menu's way to a tag's files

void trackMenu(const QString& entry, const QString& detail = QLatin1String(""))
{
    VlEventTrack::GetInstance()->SendBClickLabelMenu(entry, detail);
}

}  // namespace

void VLTagGroupListView::makeMenu()
{
    const QPointer<VLTagGroupListView> self(this);
    const TagContextMenu::Categories categories = TagContextMenu::readCategories();
    if (!self || m_menu)
        return;
    m_menu = new TagContextMenu(this, categories);
    connectMenu();
    m_menu->arrange(false);
}

void VLTagGroupListView::connectMenu()
{
    connect(m_menu, &TagContextMenu::viewFilesChosen, this, &VLTagGroupListView::viewMenuTagFiles);
    connect(m_menu, &TagContextMenu::favoriteChosen, this, [this] {
        slotSetCommonTag(m_menuTagId);
        trackMenu(QStringLiteral("Set as Favorite Tag"));
    });
    connect(m_menu, &TagContextMenu::groupChosen, this, [this](qint64 g_id) { slotSetGroupTag(g_id, m_menuTagId); });
    connect(m_menu, &TagContextMenu::renameChosen, this, [this] {
        slotRenameTag(m_menuTagId);
        trackMenu(QStringLiteral("Rename Tag"));
    });
    connect(m_menu, &TagContextMenu::colorChosen, this, &VLTagGroupListView::setMenuTagColor);
    connect(m_menu, &TagContextMenu::deleteChosen, this, [this] {
        const QPointer<VLTagGroupListView> self(this);
        trackMenu(QStringLiteral("Delete Tag"));
        if (self)
            slotDelTag(m_menuTagId);
    });
    connect(m_menu, &TagContextMenu::detachChosen, this, [this] {
        const QPointer<VLTagGroupListView> self(this);
        trackMenu(QStringLiteral("Remove the Tag from the Category"));
        if (self)
            slotDetachTag(m_menuTagId);
    });
}

void VLTagGroupListView::slotCheckTagLinkFile(qint64 tag_id, QString)
{
    emit signalsCheckoutFile({tag_id});
}

void VLTagGroupListView::slotPopMenu(qint64 tag_id, QString name)
{
    openMenu(tag_id, name, QRect());
}

void VLTagGroupListView::openMenu(qint64 tag_id, const QString& name, const QRect& chip)
{
    m_menuTagId = tag_id;
    m_menuTagName = name;
    const QPointer<VLTagGroupListView> self(this);
    QHash<qint64, QSharedPointer<ITagDataProvider>> providers;
    if (const auto group = m_provider)
        group->tagsByIds({tag_id}, &providers);
    const auto provider = providers.value(tag_id);
    const auto info = provider ? provider->tagInfo() : nullptr;
    const bool isFavorite = VLTagManagerSingleton::instance()->isFavoriteTag(tag_id);
    if (self && m_menu)
        m_menu->open(isFavorite, info ? info->colorIndex() : -1, chip);
}

void VLTagGroupListView::viewMenuTagFiles()
{
    qInfo() << "VLTagGroupListView::signalsCheckoutFile id:" << m_menuTagId;
    emit signalsCheckoutFile({m_menuTagId});
    trackMenu(QStringLiteral("View Related Files"));
    VlEventTrack::GetInstance()->SendLabelJoin(joinFromMenu);
}

void VLTagGroupListView::setMenuTagColor(int colorIndex)
{
    slotSetTagColor(m_menuTagId, colorIndex);
    const auto colors = VLTagManagerSingleton::instance()->tagColors();
    if (colorIndex >= 0 && colorIndex < colors.size())
        trackMenu(QStringLiteral("Set Color"), colors.at(colorIndex).name);
}

void VLTagGroupListView::slotAddTag()
{
    auto* dialog = new VLTagModifyWidget(VLTagModifyWidget::CreateTag, this);
    connect(dialog, &VLTagModifyWidget::signCreateTag, this, [this](const QString& name) {
        const QPointer<VLTagGroupListView> self(this);
        VlEventTrack::GetInstance()->CreateTag(createdFromTagManager, name);
        if (!self)
            return;
        m_requests.createTag(name, [self] {
            if (self)
                emit self->signalClosePopup();
        });
    });
    openNameDialog(dialog);
}

void VLTagGroupListView::openNameDialog(VLTagModifyWidget* dialog)
{
    connect(this, &VLTagGroupListView::signalClosePopup, dialog, &QWidget::close);
    dialog->showPopup();
    emit nameDialogOpened(dialog);
}

void VLTagGroupListView::slotRenameTag(qint64 tag_id)
{
    auto* dialog = new VLTagModifyWidget(VLTagModifyWidget::RenameTag, this);
    dialog->lineEdit()->setText(m_menuTagName);
    connect(dialog, &VLTagModifyWidget::signRenameTag, this,
            [this, tag_id](const QString& newName) { m_requests.renameTag(tag_id, newName); });
    openNameDialog(dialog);
}

void VLTagGroupListView::slotSetCommonTag(qint64 tag_id)
{
    const QPointer<VLTagGroupListView> self(this);
    const bool isFavorite = VLTagManagerSingleton::instance()->isFavoriteTag(tag_id);
    if (!self)
        return;
    if (isFavorite)
        m_requests.removeFromFavorites(tag_id);
    else
        m_requests.addToFavorites(tag_id);
}

void VLTagGroupListView::slotSetGroupTag(qint64 g_id, qint64 tag_id)
{
    m_requests.addToGroup(g_id, tag_id);
}

void VLTagGroupListView::slotSetTagColor(qint64 tag_id, int color_index)
{
    m_requests.setTagColor(tag_id, color_index);
}

void VLTagGroupListView::slotDelTag(qint64 tag_id)
{
    const QPointer<VLTagGroupListView> self(this);
    const auto tag = VLTagManagerSingleton::instance()->tagProvider(tag_id);
    const QString name = tag ? tag->name() : QString();
    const int fileCount = tag ? tag->fileCount(1) : 0;
    if (!tag || !self)
        return;
    const QString question = tr(
        "The Tag<font color='%1'> %2 </font>is associated with<font color='%3'> %4 </font>files，Are you sure you want "
        "to delete it?<font style='font-size:12px' color='%5'> (The files will not be deleted.) </font>");
    auto* box = new VLMessageBox(window());
    // The host may delete the tag window alone; the answer would have no receiver.
    connect(this, &QObject::destroyed, box, &QObject::deleteLater);
    connect(box, &VLMessageBox::signalResult, this, [this, tag_id](VLMessageBox::ReturnValue answer) {
        if (answer == VLMessageBox::Confirm)
            m_requests.deleteTag(tag_id);
    });
    box->showBox(VLMessageBox::Question, tr("Delete Tag"), fillDeleteQuestion(question, name, fileCount), this);
    if (isShortenedInQuestion(question, name, fileCount))
        box->setBodyToolTip(name);
}

void VLTagGroupListView::slotDetachTag(qint64 tag_id)
{
    const QPointer<VLTagGroupListView> self(this);
    const auto group = m_provider;
    const qint64 groupId = group ? group->groupId() : 0;
    if (group && self)
        m_requests.removeFromGroup(groupId, tag_id);
}

void VLTagGroupListView::slotAddGroupAction(qint64 g_id)
{
    const QPointer<VLTagGroupListView> self(this);
    const auto group = VLTagManagerSingleton::instance()->tagGroupProvider(g_id);
    const QString name = group ? group->groupName() : QString();
    if (group && self && m_menu)
        m_menu->groupList()->slotAddItem(g_id, name);
}

void VLTagGroupListView::slotRemoveGroupAction(qint64 g_id)
{
    if (m_menu)
        m_menu->groupList()->slotRemoveItem(g_id);
}

void VLTagGroupListView::slotUpdateGroupAction(qint64 g_id)
{
    if (g_id < taggroupid::firstUser)
        return;
    const QPointer<VLTagGroupListView> self(this);
    const auto group = VLTagManagerSingleton::instance()->tagGroupProvider(g_id);
    const QString name = group ? group->groupName() : QString();
    if (group && self && m_menu)
        m_menu->groupList()->slotUpdateItem(g_id, name);
}
