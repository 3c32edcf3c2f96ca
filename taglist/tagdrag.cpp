// SPDX-License-Identifier: MIT
#include "taglist/tagdrag.h"

#include "taglist/vltaglistview.h"

#include <ivltagmanagercontrol.h>

#include <QDataStream>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QWidget>

#include <memory>

QMimeData* makeTagMimeData(qint64 tag_id)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << tag_id;
    auto mimeData = std::make_unique<QMimeData>();
    mimeData->setData(QLatin1String(tagManagerTagFormat), payload);
    return mimeData.release();
}

bool isChipDrag(const QDropEvent* event)
{
    return qobject_cast<VLTagListView*>(event->source()) != nullptr;
}

QPixmap makeDragImage(QWidget* widget, const QRect& area)
{
    constexpr QColor opacity(0, 0, 0, 102);
    const QPixmap shown = widget->grab(area);
    QPixmap image(shown.size());
    image.setDevicePixelRatio(shown.devicePixelRatio());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawPixmap(0, 0, shown);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(QRect(QPoint(0, 0), area.size()), opacity);
    return image;
}
