// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// One line of plain text, elided at its end where it does not fit; a tool tip shows all of it then. Uses the colour
/// and font of the widget.
class ElidedLabel : public QWidget
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;

    QString m_text;
};
