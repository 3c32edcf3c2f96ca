// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QtGlobal>

class QDropEvent;
class QMimeData;
class QRect;
class QWidget;

/// What is dragged for a tag, in tagManagerTagFormat; owned by the caller.
QMimeData* makeTagMimeData(qint64 tag_id);

/// Whether a chip of one of this process's tag lists is dragged.
[[nodiscard]] bool isChipDrag(const QDropEvent* event);

/// What \a widget shows in \a area (logical pixels, the widget's coordinates), at 40 % opacity.
QPixmap makeDragImage(QWidget* widget, const QRect& area);
