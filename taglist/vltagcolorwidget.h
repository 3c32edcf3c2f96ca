// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

/// One round swatch of the colour row, 21 x 21 logical pixels: a dot, larger with a dark ring when hovered or
/// highlighted, with a white ring when selected.
class VLTagColorWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VLTagColorWidget(const QColor& color, QWidget* parent = nullptr);

    [[nodiscard]] bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    /// Marks where the keyboard is.
    void setHighlighted(bool highlighted);
    /// Selects the swatch and reports it, as a click does.
    void pick();

signals:
    void signalColorClicked();

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
    bool m_selected = false;
    bool m_hovered = false;
    bool m_highlighted = false;
};
