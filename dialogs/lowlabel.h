// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A label that may be lower than its font's line: raises the text by its descenders and shrinks it if the glyphs do
/// not fit. One line of plain text, in a font whose size is given in pixels. GUI thread only.
class LowLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};
