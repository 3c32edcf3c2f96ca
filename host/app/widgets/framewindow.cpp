// SPDX-License-Identifier: MIT
#include "host/app/widgets/framewindow.h"

#include "host/app/widgets/framegeometry.h"

#include <vlskinsetting.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

namespace {

constexpr int borderWidth = 5;  // wide enough to be hit with a pointer
constexpr int cornerLength = 16;
constexpr int cornerRadius = 8;

}  // namespace

FrameWindow::FrameWindow(QWidget* parent, Qt::WindowType type)
    : QWidget(parent, type | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint)
    , m_content(new QWidget(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setMouseTracking(true);
    // Otherwise children would inherit the cursor of the frame.
    m_content->setCursor(Qt::ArrowCursor);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(m_content);
    updateFrame();
}

void FrameWindow::toggleMaximized()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

bool FrameWindow::isMoveArea(const QPoint& pos) const
{
    return !m_content->geometry().contains(pos);
}

void FrameWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    updateFrame();
    emit maximizedChanged(isMaximized());
}

void FrameWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPos = event->globalPos();
    m_startGeometry = geometry();
    const Qt::Edges edges = edgesAt(event->pos());
    if (edges)
        beginResize(edges);
    else if (isMoveArea(event->pos()))
        m_drag = Drag::Pressed;
}

void FrameWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton)) {
        m_drag = Drag::None;
        setCursor(FrameGeometry::cursorShape(edgesAt(event->pos())));
        return;
    }
    const QPoint delta = event->globalPos() - m_pressPos;
    if (m_drag == Drag::Pressed && delta.manhattanLength() >= QApplication::startDragDistance())
        beginMove();
    if (m_drag == Drag::Move && hasEdges())
        move(m_startGeometry.topLeft() + delta);
    if (m_drag == Drag::Resize)
        setGeometry(FrameGeometry::resized(m_startGeometry, m_edges, delta, minimumSize()));
}

void FrameWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_drag = Drag::None;
}

void FrameWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || edgesAt(event->pos()) || !isMoveArea(event->pos()))
        return;
    m_drag = Drag::None;
    toggleMaximized();
}

void FrameWindow::paintEvent(QPaintEvent* /*event*/)
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    QPainter painter(this);
    if (!hasEdges()) {
        painter.fillRect(rect(), skin->GetPopupWinBackgroundColor());
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(skin->GetPopupWinBorderColor());
    painter.setBrush(skin->GetPopupWinBackgroundColor());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

bool FrameWindow::hasEdges() const
{
    return !isMaximized() && !isFullScreen();
}

Qt::Edges FrameWindow::edgesAt(const QPoint& pos) const
{
    return hasEdges() ? FrameGeometry::edgesAt(size(), pos, borderWidth, cornerLength) : Qt::Edges();
}

void FrameWindow::beginMove()
{
    // While the window system moves the window, no pointer events are delivered.
    m_drag = windowHandle()->startSystemMove() ? Drag::None : Drag::Move;
}

void FrameWindow::beginResize(Qt::Edges edges)
{
    m_edges = edges;
    m_drag = windowHandle()->startSystemResize(edges) ? Drag::None : Drag::Resize;
}

void FrameWindow::updateFrame()
{
    const int inset = hasEdges() ? borderWidth : 0;
    layout()->setContentsMargins(inset, inset, inset, inset);
    unsetCursor();
    update();
}
