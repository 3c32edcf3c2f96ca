// SPDX-License-Identifier: MIT
#include "host/app/picturedrop.h"

#include "host/app/files/filedrag.h"

#include <ivltagmanagercontrol.h>
#include <ivltagmanagerwidget.h>

#include <QDropEvent>
#include <QMimeData>

PictureDrop::PictureDrop(QWidget* window, IVLTagManagerWidget* tagManager)
    : QObject(window)
    , m_tagManager(tagManager)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

PictureDrop::~PictureDrop() = default;

bool PictureDrop::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* const drag = static_cast<QDropEvent*>(event);
        if (filedrag::filesOf(*drag->mimeData()).isEmpty())
            break;
        // Entering anywhere must be accepted, or no move follows.
        const bool isOnTag = markTag(*drag) != 0;
        drag->setAccepted(isOnTag || event->type() == QEvent::DragEnter);
        return true;
    }
    case QEvent::DragLeave:
        unmark();
        break;
    case QEvent::Drop: {
        auto* const drop = static_cast<QDropEvent*>(event);
        const QVector<qint64> files = filedrag::filesOf(*drop->mimeData());
        const qint64 tagId = markTag(*drop);
        unmark();
        if (files.isEmpty() || tagId == 0)
            break;
        drop->acceptProposedAction();
        emit picturesDropped(tagId, files);
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

qint64 PictureDrop::markTag(const QDropEvent& event)
{
    const auto* control = qobject_cast<IVLTagManagerControl*>(m_tagManager.data());
    if (!control)
        return 0;
    const auto* window = static_cast<const QWidget*>(parent());
    const TagManagerItem item = control->itemAt(m_tagManager->mapFrom(window, event.pos()));
    if (!m_tagManager || item.kind != TagManagerItem::Tag) {
        unmark();
        return 0;
    }
    if (!m_mark)
        m_mark = std::make_unique<QRubberBand>(QRubberBand::Rectangle, m_tagManager.data());
    m_mark->setGeometry(item.rect.adjusted(-2, -2, 2, 2));
    m_mark->show();
    return item.id;
}
