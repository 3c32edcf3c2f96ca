// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QtGlobal>

class QDropEvent;
class QMimeData;
class QRect;
class QWidget;

/// Format under which a dragged tag travels: one tag id, as a qint64 that a QDataStream of default settings writes.
extern const char tagDragFormat[];

/// What is dragged for a tag; owned by the caller.
QMimeData* makeTagMimeData(qint64 tag_id);

/// Whether a chip of one of this process's tag lists is dragged.
[[nodiscard]] bool isChipDrag(const QDropEvent* event);

/// What \a widget shows in \a area (logical pixels, the widget's coordinates), at 40 % opacity.
QPixmap makeDragImage(QWidget* widget, const QRect& area);
