// SPDX-License-Identifier: MIT
#include "widgets/vlscrollbar.h"

#include <vlskinsetting.h>

#include <QAbstractScrollArea>
#include <QCursor>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>

namespace {

constexpr int durationMs = 150;
constexpr double restingOpacity = 0.6;
constexpr int restingWidth = 5;
constexpr int hoverWidth = 8;
/// From the area's right edge to the bar's left edge.
constexpr int rightInset = 9;

}  // namespace

VLScrollBar::VLScrollBar(QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
    , m_opacity(new QGraphicsOpacityEffect(this))
{
    m_opacity->setOpacity(restingOpacity);
    setGraphicsEffect(m_opacity);
    // The toolkit's own menu for scrolling matches nothing else in the window.
    setContextMenuPolicy(Qt::PreventContextMenu);
    makeAnimations();
    applyStyle();
}

VLScrollBar::~VLScrollBar() = default;

void VLScrollBar::makeAnimations()
{
    const auto makeGroup = [this](QPropertyAnimation*& geometryAnimation, double from, double to) {
        auto* group = new QParallelAnimationGroup(this);
        geometryAnimation = new QPropertyAnimation(this, "geometry", group);
        geometryAnimation->setDuration(durationMs);
        makeFade(from, to, group);
        return group;
    };
    m_widen = makeGroup(m_widenGeometry, restingOpacity, 1.0);
    m_narrow = makeGroup(m_narrowGeometry, 1.0, restingOpacity);
    m_fadeIn = makeFade(0.0, restingOpacity, this);
    m_fadeOut = makeFade(restingOpacity, 0.0, this);
    connect(m_fadeOut, &QPropertyAnimation::finished, this, &VLScrollBar::hide);
}

QPropertyAnimation* VLScrollBar::makeFade(double from, double to, QObject* parent)
{
    auto* fade = new QPropertyAnimation(m_opacity, "opacity", parent);
    fade->setDuration(durationMs);
    fade->setStartValue(from);
    fade->setEndValue(to);
    return fade;
}

void VLScrollBar::applyStyle()
{
    setStyleSheet(
        QStringLiteral(
            "QScrollBar::sub-line:vertical{subcontrol-origin:margin;border:0px;width:0px;height:0px;}"
            "QScrollBar::add-line:vertical{subcontrol-origin:margin;border:0px;width:0px;height:0px;}"
            "QScrollBar::up-arrow:vertical, QScrollBar::down-arrow:vertical "
            "{border: 0px solid grey;width: 0px;height:0px;background-color:rgba(0,0,0,0);}"
            "QScrollBar::sub-page:vertical{background-color:rgba(0,0,0,0);}"
            "QScrollBar::add-page:vertical{background-color:rgba(0,0,0,0);}"
            "QScrollBar::handle:vertical {margin:0px;border-radius: 2px;min-height:30px ;background-color:%1;}"
            "QScrollBar:vertical {border:none;background-color:rgba(100,0,0,0); width: 4px;border-radius:2px;}")
            .arg(VLSkinSetting::GetInstance()->GetTreeScrollHandleColor().name()));
}

void VLScrollBar::setUp(QAbstractScrollArea* area, int horizontalOffset, int topOffset)
{
    if (m_area) {
        m_area->removeEventFilter(this);
        disconnect(m_area->verticalScrollBar(), nullptr, this, nullptr);
        disconnect(this, nullptr, m_area->verticalScrollBar(), nullptr);
    }
    m_area = area;
    m_horizontalOffset = horizontalOffset;
    m_topOffset = topOffset;
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hide();
    follow(area->verticalScrollBar());
    area->installEventFilter(this);
    place();
    update();
}

void VLScrollBar::follow(QScrollBar* source)
{
    // A fresh scroll bar has a range of its own, which would show the bar over content that fits.
    setRange(0, source->maximum());
    setPageStep(source->pageStep());
    setSingleStep(source->singleStep());
    setValue(source->value());
    connect(source, &QScrollBar::valueChanged, this, &VLScrollBar::slot_valueChange_scrollBar);
    connect(this, &QScrollBar::valueChanged, source, &QScrollBar::setValue);
    connect(source, &QScrollBar::rangeChanged, this, &VLScrollBar::slot_rangeChanged);
}

void VLScrollBar::place()
{
    if (!m_area)
        return;
    m_widen->stop();
    m_narrow->stop();
    setGeometry(m_horizontalOffset + m_area->width() - rightInset, m_topOffset + 1, restingWidth, m_area->height() - 2);
}

void VLScrollBar::slot_valueChange_scrollBar(int value)
{
    setValue(value);
}

void VLScrollBar::slot_rangeChanged(int min, int max)
{
    setMinimum(min);
    setRange(0, max);
    setPageStep(m_area ? m_area->verticalScrollBar()->pageStep() : static_cast<int>((height() + max) * 0.75));
    if (max < 1) {
        hide();
        return;
    }
    // The cursor in the bar's coordinates against the place in the parent's: hosts rely on when this shows the bar.
    if (isHidden() && geometry().contains(mapFromGlobal(QCursor::pos()))) {
        m_opacity->setOpacity(restingOpacity);
        show();
    }
}

bool VLScrollBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_area) {
        if (event->type() == QEvent::Resize) {
            place();
        } else if (event->type() == QEvent::Enter) {
            fadeIn();
        } else if (event->type() == QEvent::Leave) {
            fadeOut();
            place();
        }
    }
    return QScrollBar::eventFilter(watched, event);
}

void VLScrollBar::fadeIn()
{
    if (maximum() <= 0 || m_fadeIn->state() == QAbstractAnimation::Running)
        return;
    setPageStep(m_area->verticalScrollBar()->pageStep());
    // A fade-out still under way would hide the bar under the pointer when it ends.
    m_fadeOut->stop();
    show();
    m_fadeIn->start();
}

/// A page may hide the bar at once when the pointer leaves instead of letting it fade: a fading one would lie over what
/// is under the pointer next.
void VLScrollBar::fadeOut()
{
    if (m_fadeOut->state() == QAbstractAnimation::Running)
        return;
    m_fadeIn->stop();
    m_fadeOut->start();
}

void VLScrollBar::enterEvent(QEvent* event)
{
    QScrollBar::enterEvent(event);
    resizeTo(hoverWidth, m_widen, m_widenGeometry, m_narrow);
}

void VLScrollBar::leaveEvent(QEvent* event)
{
    QScrollBar::leaveEvent(event);
    resizeTo(restingWidth, m_narrow, m_narrowGeometry, m_widen);
}

void VLScrollBar::resizeTo(int width, QParallelAnimationGroup* group, QPropertyAnimation* geometryAnimation,
                           QParallelAnimationGroup* opposite)
{
    if (group->state() == QAbstractAnimation::Running)
        return;
    opposite->stop();
    const QRect from = geometry();
    // The right edge stays where it is, so that interrupted animations cannot make the bar drift.
    const QRect to(from.x() + from.width() - width, from.y(), width, from.height());
    geometryAnimation->setStartValue(from);
    geometryAnimation->setEndValue(to);
    group->start();
}
