// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QTextLayout;

/// Plain text on as many lines as it needs, broken between words, and inside a word that is wider than the label; so a
/// sentence with a file name in it is shown whole. Takes its colour and font from the widget.
class WrappedLabel : public QWidget
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Lays the lines out for a label of that width, in logical pixels; returns their height.
    qreal layOut(QTextLayout& layout, int width) const;

    QString m_text;
};
