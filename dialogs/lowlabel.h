// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A label that may be lower than a line of its font: its one line of plain text stands as much higher than its
/// alignment says as its descenders need, and is set smaller when its glyphs are taller than the label. The font's size
/// is given in pixels. GUI thread only.
class LowLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};
