// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

class QWidget;

// Drags of a tag chip without a pointer that anybody moves: the events that the window system would send are sent by
// hand while a real drag is under way. The "offscreen" platform knows no drags, so a test program that uses these
// chooses the "minimal" one before it makes its application.

/// What a chip of that tag carries.
QByteArray chipPayload(qint64 tagId);

/// Starts a drag from \a source, carries out \a steps while it is under way, and gives it up.
void whileDragging(QWidget* source, const std::function<void()>& steps);

/// Brings a drag with that payload, null for none at all, over \a target. Answers whether the target would take it.
bool dragOver(QWidget* target, const QByteArray& payload);

/// Drops it there. Answers whether the target took it.
bool dropOn(QWidget* target, const QByteArray& payload);
