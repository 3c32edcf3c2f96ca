// SPDX-License-Identifier: MIT
#include "dialogs/lowlabel.h"

#include <QPainter>

namespace {

constexpr QMargins raisedRoom(0, 5, 0, 1);  // logical pixels, beyond the label

}  // namespace

void LowLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect().marginsAdded(raisedRoom), int(alignment()), text());
}
