// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A label that may be lower than a line of its font: its one line of plain text stands a little higher than its
/// alignment says, so that descenders show. GUI thread only.
class LowLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};
