// SPDX-License-Identifier: MIT
#include "pages/ctaggroupitemwidget.h"

#include "pages/vlgrouplabel.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/tagdrag.h"
#include "widgets/plaintooltip.h"

#include <itagmanagerdataprovider.h>
#include <ivltagmanagercontrol.h>
#include <tagrecords.h>
#include <vlskinsetting.h>

#include <QDataStream>
#include <QDropEvent>
#include <QLabel>
#include <QMetaMethod>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

#include <optional>

Q_DECLARE_METATYPE(QSharedPointer<const ITagGroupDataProvider>)

namespace {

constexpr int fontPixelSize = 13;
constexpr int fillInset = 2;
constexpr int fillRadius = 4;
constexpr int borderRadius = 6;
constexpr int dropFrameWidth = 2;
constexpr double dropTintOpacity = 0.3;

/// Whoever connects by name, through a queue or to record the signals looks the type up by its name.
void registerSignalTypes()
{
    static const int provider =
        qRegisterMetaType<QSharedPointer<const ITagGroupDataProvider>>("QSharedPointer<const ITagGroupDataProvider>");
    Q_UNUSED(provider)
}

QFont tileFont(QFont font)
{
    font.setPixelSize(fontPixelSize);
    return font;
}

/// The tag id that a dragged chip carries: one qint64 in QDataStream's default format.
std::optional<qint64> draggedTagId(const QMimeData* data)
{
    const QByteArray payload = data->data(QLatin1String(tagManagerTagFormat));
    QDataStream stream(payload);
    qint64 tagId = 0;
    stream >> tagId;
    return stream.status() == QDataStream::Ok ? std::optional(tagId) : std::nullopt;
}

}  // namespace

CTagGroupItemWidget::CTagGroupItemWidget(const QSharedPointer<ITagGroupDataProvider>& provider, QWidget* parent)
    : QWidget(parent)
    , m_provider(provider)
{
    registerSignalTypes();
    setFont(tileFont(font()));
    setAcceptDrops(true);
    if (!m_provider)
        return;
    connect(m_provider.data(), &IDataProvider::signalUpdated, this, &CTagGroupItemWidget::updateFromProvider);
    // From the argument: the host may delete the tile from inside the reading.
    const QPointer<CTagGroupItemWidget> self(this);
    const auto group = provider;
    const int reading = ++m_readings;
    const auto record = group->groupInfo();
    const int tagCount = record ? group->tagCount(1) : 0;
    if (record && self && m_readings == reading)
        showRecord(record->name(), tagCount);
}

CTagGroupItemWidget::~CTagGroupItemWidget() = default;

qint64 CTagGroupItemWidget::groupId() const
{
    const auto provider = m_provider;
    const auto record = provider ? provider->groupInfo() : nullptr;
    return record ? record->id() : taggroupid::none;
}

void CTagGroupItemWidget::setSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    update();
}

void CTagGroupItemWidget::createLabels(const QString& name)
{
    m_nameLabel = new VLGroupLabel(this);
    m_nameLabel->setObjectName(QStringLiteral("tag_group_name_label"));
    m_nameLabel->setFont(font());
    m_nameLabel->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_nameLabel->setMidLineWidth(sideLength);

    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("tag_group_count_label"));
    m_countLabel->setTextFormat(Qt::PlainText);
    m_countLabel->setFont(font());
    m_countLabel->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(7, 9, 7, 10);
    layout->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    layout->addStretch();
    layout->addWidget(m_nameLabel);
    layout->addSpacing(3);
    layout->addWidget(m_countLabel);
    layout->addStretch();
    // Only now does the label have the font that it is shown in.
    m_nameLabel->setWrappedText(name);
}

void CTagGroupItemWidget::showRecord(const QString& name, int tagCount)
{
    m_name = name;
    if (!m_nameLabel)
        createLabels(name);
    m_nameLabel->setWrappedText(name);
    setToolTip(m_nameLabel->text() == name ? QString() : plainToolTip(name));
    m_countLabel->setText(QString::number(tagCount));
}

void CTagGroupItemWidget::updateFromProvider()
{
    const QPointer<CTagGroupItemWidget> self(this);
    const auto provider = m_provider;
    const int reading = ++m_readings;
    const auto record = provider->groupInfo();
    const int tagCount = record ? provider->tagCount(1) : 0;
    // From inside the reading the host may have taken the tile away, or reported a change that was read since.
    if (!record || !self || m_readings != reading)
        return;
    const QString name = record->name();
    const qint64 id = record->id();
    showRecord(name, tagCount);

    emit signalClosePopup();
    if (self && m_selected)
        emit signalGroupInfoChanged(name, tagCount);
    emit VLTagManagerSingleton::instance()->signalUpdateGroupAction(id);
}

void CTagGroupItemWidget::select()
{
    if (m_selected)
        return;
    setSelected(true);
    emit signSelectedChanged(m_name, m_countLabel ? m_countLabel->text() : QString(), m_provider);
}

void CTagGroupItemWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (!rect().contains(event->pos()))
        return;
    if (!m_provider) {
        if (event->button() == Qt::LeftButton)
            emit signAddGroup();
        return;
    }
    const QPointer<CTagGroupItemWidget> self(this);
    const bool wantsMenu = event->button() == Qt::RightButton;
    select();
    if (!self || !wantsMenu)
        return;
    const auto provider = m_provider;
    const auto record = provider->groupInfo();
    if (self && record)
        emit signPopMenu(record->id(), record->name());
}

void CTagGroupItemWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (!isChipDrag(event)) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::MoveAction);
    event->accept();
    setDropTarget(true, event->mimeData());
}

void CTagGroupItemWidget::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    setDropTarget(false, nullptr);
}

/// Only where a drop does something the tile shows that it is the target.
void CTagGroupItemWidget::setDropTarget(bool isTarget, const QMimeData* dragged)
{
    m_dropTarget =
        isTarget && m_provider && isSignalConnected(QMetaMethod::fromSignal(&CTagGroupItemWidget::signAddGroupTag));
    update();
    emit dragMovedOver(isTarget ? this : nullptr, dragged);
}

void CTagGroupItemWidget::dropEvent(QDropEvent* event)
{
    if (!isChipDrag(event)) {
        event->ignore();
        return;
    }
    setDropTarget(false, nullptr);
    const std::optional<qint64> tagId = draggedTagId(event->mimeData());
    const QPointer<CTagGroupItemWidget> self(this);
    const auto provider = m_provider;
    const auto record = provider ? provider->groupInfo() : nullptr;
    if (!self || !tagId || !record)
        return;
    event->setDropAction(Qt::MoveAction);
    event->accept();
    emit signAddGroupTag(record->id(), *tagId);
}

void CTagGroupItemWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    if (m_provider)
        paintCategory(painter);
    else
        paintAddNew(painter);
}

void CTagGroupItemWidget::paintCategory(QPainter& painter) const
{
    const auto* skin = VLSkinSetting::GetInstance();
    const QRect fill = rect().adjusted(fillInset, fillInset, -fillInset, -fillInset);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_selected ? skin->GetTagPopupTabBackSelectedColor() : skin->GetTagManagerTagGroupItemBackColor());
    painter.drawRoundedRect(fill, fillRadius, fillRadius);
    if (m_dropTarget) {
        QColor tint = skin->GetPopupWinBlueColor();
        painter.setPen(QPen(tint, dropFrameWidth));
        tint.setAlphaF(dropTintOpacity);
        painter.setBrush(tint);
        painter.drawRoundedRect(fill, fillRadius, fillRadius);
    }
    if (!m_selected)
        return;
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect(), borderRadius, borderRadius);
}

void CTagGroupItemWidget::paintAddNew(QPainter& painter) const
{
    const auto* skin = VLSkinSetting::GetInstance();
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin->GetTagManagerTagGroupItemBackColor());
    painter.drawRoundedRect(rect(), fillRadius, fillRadius);

    painter.setPen(skin->GetTagManagerFontColor3());
    painter.drawLine(39, 14, 39, 40);
    painter.drawLine(26, 27, 52, 27);
    painter.setFont(tileFont(font()));
    painter.drawText(QPoint(13, 59), tr("Add New"));
}
