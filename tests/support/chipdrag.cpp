// SPDX-License-Identifier: MIT
#include "tests/support/chipdrag.h"

#include <QApplication>
#include <QDataStream>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace {

std::unique_ptr<QMimeData> chipData(const QByteArray& payload)
{
    auto data = std::make_unique<QMimeData>();
    if (!payload.isNull())
        data->setData(QStringLiteral("TagManager_Group_List_View"), payload);
    return data;
}

bool isTaken(const QDropEvent& event)
{
    return event.isAccepted() && event.dropAction() == Qt::MoveAction;
}

}  // namespace

QByteArray chipPayload(qint64 tagId)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << tagId;
    return bytes;
}

void whileDragging(QWidget* source, const std::function<void()>& steps)
{
    auto* drag = new QDrag(source);
    drag->setMimeData(new QMimeData);
    QTimer::singleShot(0, drag, [&steps] {
        steps();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(qApp, &escape);
    });
    drag->exec(Qt::MoveAction);
}

bool dragOver(QWidget* target, const QByteArray& payload)
{
    const auto data = chipData(payload);
    QDragEnterEvent event(target->rect().center(), Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(target, &event);
    return isTaken(event);
}

bool dropOn(QWidget* target, const QByteArray& payload)
{
    const auto data = chipData(payload);
    QDropEvent event(target->rect().center(), Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(target, &event);
    return isTaken(event);
}
