// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

/// A top-level window without the system's title bar: a thin rounded border of its own, edges and corners to resize by,
/// and areas to move it by. Moving and resizing are left to the window system where it offers that.
///
/// All lengths in logical pixels.
class FrameWindow : public QWidget
{
    Q_OBJECT

public:
    explicit FrameWindow(QWidget* parent = nullptr);

    /// Where the content goes; stays clear of the border.
    [[nodiscard]] QWidget* contentWidget() const { return m_content; }

signals:
    /// The window became maximised or normal again, whatever the cause.
    void maximizedChanged(bool maximized);

public slots:
    void toggleMaximized();

protected:
    /// True where dragging moves the window and a double click maximises or restores it. \a pos is relative to the
    /// window; asked only for presses that no widget has taken.
    [[nodiscard]] virtual bool isMoveArea(const QPoint& pos) const;

    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Drag
    {
        None,
        Pressed,
        Move,
        Resize
    };

    [[nodiscard]] bool hasEdges() const;
    [[nodiscard]] Qt::Edges edgesAt(const QPoint& pos) const;
    void beginMove();
    void beginResize(Qt::Edges edges);
    void updateFrame();

    QWidget* m_content = nullptr;
    Drag m_drag = Drag::None;
    Qt::Edges m_edges;
    QPoint m_pressPos;      ///< Of the pointer, on the screen.
    QRect m_startGeometry;  ///< Of the window, when the drag began.
};
