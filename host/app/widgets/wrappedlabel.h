// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QTextLayout;

/// Plain text on as many lines as it needs, wrapped between words, and inside a word that is wider than the label, such
/// as a file name. Uses the colour and font of the widget.
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
    /// Lays out the lines for a label of \a width and returns their height; logical pixels.
    qreal layOut(QTextLayout& layout, int width) const;

    QString m_text;
};
