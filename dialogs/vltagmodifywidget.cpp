// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"

#include "dialogs/lowlabel.h"
#include "plugin/state/vltagmanagersingleton.h"

#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <vlskinsetting.h>

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace {
constexpr int maximumNameLength = 20;  // UTF-16 code units.

QFont pixelFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    return font;
}
}  // namespace

VLTagModifyWidget::VLTagModifyWidget(int mode, QWidget* parent)
    : CPopupDialog(parent, true, false, false, true, true)
{
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(this, QStringLiteral("tagmanager"));
    setFixedSize(304, 186);
    setTitleBarHeight(30);
    setLogoVisible(false);
    setCloseButtonVisible(true);
    createTitle();
    createField();
    createTip();
    createButtons();
    setUpMode(mode);
    centreTitle();
    setFocusPolicy(Qt::StrongFocus);
    m_confirmBtn->setFocusPolicy(Qt::NoFocus);
    m_cancelBtn->setFocusPolicy(Qt::NoFocus);
    translateTips();
}

void VLTagModifyWidget::allowAgain()
{
    m_confirmBtn->setEnabled(true);
}

void VLTagModifyWidget::slotCloseDialog()
{
    close();
}

void VLTagModifyWidget::slotModifyLabel()
{
    const QString name = enteredName();
    if (checkTagName(name))
        send(&VLTagModifyWidget::signRenameTag, name);
}

void VLTagModifyWidget::slotTipHide()
{
    m_tipLabel->hide();
}

void VLTagModifyWidget::slotCreateLabel()
{
    const QString name = enteredName();
    if (checkTagName(name))
        send(&VLTagModifyWidget::signCreateTag, name);
}

void VLTagModifyWidget::slotModifyGroup()
{
    const QString name = enteredName();
    if (checkGroupName(name))
        send(&VLTagModifyWidget::signalRenameGroup, name);
}

void VLTagModifyWidget::slotCreateGroup()
{
    const QString name = enteredName();
    if (checkGroupName(name))
        send(&VLTagModifyWidget::signcreateGroup, name);
}

void VLTagModifyWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit m_confirmBtn->clicked(false);
}

void VLTagModifyWidget::showEvent(QShowEvent* event)
{
    CPopupDialog::showEvent(event);
    m_lineEdit->setFocus();
    m_lineEdit->selectAll();
}

void VLTagModifyWidget::createTitle()
{
    m_titleLabel = new LowLabel(this);
    m_titleLabel->setText(tr("Modify Tag"));
    m_titleLabel->setObjectName(QStringLiteral("tag_popup_ttile"));
    m_titleLabel->setFixedSize(64, 16);
    m_titleLabel->setFont(pixelFont(16));
    m_titleLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_titleLabel->move(120, 30);
}

void VLTagModifyWidget::createField()
{
    m_lineEdit = new QLineEdit(this);
    m_lineEdit->setObjectName(QStringLiteral("tag_popup_line_edit"));
    m_lineEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_lineEdit->setFixedSize(244, 22);
    m_lineEdit->setFont(pixelFont(14));
    m_lineEdit->move(30, 76);
}

void VLTagModifyWidget::createTip()
{
    m_tipLabel = new QLabel(this);
    m_tipLabel->setObjectName(QStringLiteral("tag_popup_tip"));
    m_tipLabel->move(30, 98);
    m_tipLabel->setFixedWidth(150);
    m_tipLabel->hide();
}

void VLTagModifyWidget::createButtons()
{
    m_confirmBtn = new QPushButton(this);
    m_confirmBtn->setFixedSize(106, 28);
    m_confirmBtn->setObjectName(QStringLiteral("tag_popup_btn"));
    m_confirmBtn->setFont(pixelFont(13));
    m_confirmBtn->move(99, 128);

    m_cancelBtn = new QPushButton(tr("Cancel"), this);
    m_cancelBtn->setFixedSize(76, 28);
    m_cancelBtn->setObjectName(QStringLiteral("tag_popup_btn"));
    m_cancelBtn->move(117, 160);
    m_cancelBtn->hide();
    connect(m_cancelBtn, &QPushButton::clicked, this, &VLTagModifyWidget::slotCloseDialog);
}

void VLTagModifyWidget::setUpMode(int mode)
{
    switch (mode) {
    case RenameTag:
        setUpTexts(tr("Modify Tags"), tr("Modify"));
        connect(m_confirmBtn, SIGNAL(clicked()), this, SLOT(slotModifyLabel()));
        break;
    case CreateTag:
        setUpTexts(tr("Create Tags"), tr("Create"));
        connect(m_confirmBtn, SIGNAL(clicked()), this, SLOT(slotCreateLabel()));
        break;
    case RenameGroup:
        setUpTexts(tr("Modify Tag Categories"), tr("Modify"));
        connect(m_confirmBtn, SIGNAL(clicked()), this, SLOT(slotModifyGroup()));
        break;
    case CreateGroup:
        setUpTexts(tr("Create Tag Categories"), tr("Create"));
        connect(m_confirmBtn, SIGNAL(clicked()), this, SLOT(slotCreateGroup()));
        break;
    default:
        break;
    }
}

void VLTagModifyWidget::setUpTexts(const QString& title, const QString& confirmText)
{
    m_titleLabel->setText(title);
    m_confirmBtn->setText(confirmText);
}

void VLTagModifyWidget::centreTitle()
{
    const int width = QFontMetrics(pixelFont(16)).boundingRect(m_titleLabel->text()).width();
    m_titleLabel->setFixedWidth(width);
    m_titleLabel->move((this->width() - width) / 2, m_titleLabel->y());
    setWindowTitle(m_titleLabel->text());
}

void VLTagModifyWidget::translateTips()
{
    m_tagExistsTip = tr("Name already exists");
    m_tagTooLongTip = tr("20 characters maximum");
    m_tagEmptyTip = tr("Please insert a name");
    m_groupExistsTip = tr("Name already exists");
    m_groupTooLongTip = tr("20 characters maximum");
    m_groupEmptyTip = tr("Please insert a name");
}

QString VLTagModifyWidget::enteredName() const
{
    return m_lineEdit->text().trimmed();
}

bool VLTagModifyWidget::checkTagName(const QString& name)
{
    if (name.isEmpty())
        return rejectName(m_tagEmptyTip);
    // A copy: the host may change the library from inside the look-up.
    const QPointer<VLTagModifyWidget> self(this);
    const QSharedPointer<ITagGroupDataProvider> allTags = VLTagManagerSingleton::instance()->allTagsProvider();
    const bool exists = allTags && allTags->tagByName(name);
    if (!self)
        return false;
    if (exists)
        return rejectName(m_tagExistsTip);
    if (name.size() > maximumNameLength)
        return rejectName(m_tagTooLongTip);
    return true;
}

bool VLTagModifyWidget::checkGroupName(const QString& name)
{
    if (name.isEmpty())
        return rejectName(m_groupEmptyTip);
    if (name.size() > maximumNameLength)
        return rejectName(m_groupTooLongTip);
    const QPointer<VLTagModifyWidget> self(this);
    const bool exists = !VLTagManagerSingleton::instance()->tagGroupByName(name).isNull();
    if (!self)
        return false;
    if (exists)
        return rejectName(m_groupExistsTip);
    return true;
}

bool VLTagModifyWidget::rejectName(const QString& tip)
{
    m_tipLabel->setText(tip);
    m_tipLabel->show();
    return false;
}

void VLTagModifyWidget::send(NameSignal signal, const QString& name)
{
    const QPointer<VLTagModifyWidget> self(this);
    emit(this->*signal)(name);
    if (self)
        m_confirmBtn->setEnabled(false);
}
