// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

/// A top-level window without the system's title bar: it paints a thin rounded border and is resized by its edges and
/// corners and moved by areas that subclasses define. The window system moves and resizes it where it can.
///
/// All lengths in logical pixels.
class FrameWindow : public QWidget
{
    Q_OBJECT

public:
    /// \a type is Qt::Window or Qt::Dialog.
    explicit FrameWindow(QWidget* parent = nullptr, Qt::WindowType type = Qt::Window);

    /// Parent of the content, inside the border.
    [[nodiscard]] QWidget* contentWidget() const { return m_content; }

signals:
    /// The window was maximised or restored, by whatever means.
    void maximizedChanged(bool maximized);

public slots:
    void toggleMaximized();

protected:
    /// Whether dragging from \a pos, relative to the window, moves it and a double click maximises or restores it.
    /// Called only for presses that no widget accepted.
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
    QPoint m_pressPos;      ///< Position of the pointer on the screen.
    QRect m_startGeometry;  ///< Geometry of the window at the start of the drag.
};
