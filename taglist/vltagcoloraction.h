// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QWidget>

class VLTagColorWidget;

/// The row of colour swatches in a tag's menu, one per entry of the shared palette as it is at construction.
///
/// With the keyboard focus, Left and Right move a highlight, Enter and Space pick; every other key is left to the menu.
class VLTagColorAction : public QWidget
{
    Q_OBJECT

public:
    explicit VLTagColorAction(QWidget* parent = nullptr);

    /// Selects the swatch at \a index and no other; none when there is no such swatch.
    void setSelected(int index);

signals:
    /// \a index: position in the palette, from 0; -1 when the swatch is not part of the row.
    void signalColorClicked(int index);

public slots:
    void slotColorClicked();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addSwatches();
    [[nodiscard]] int selectedIndex() const;
    void highlight(int index);

    QVector<VLTagColorWidget*> m_swatches;
    int m_highlighted = -1;
};
