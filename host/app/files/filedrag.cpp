// SPDX-License-Identifier: MIT
#include "host/app/files/filedrag.h"

#include <ivltagmanagercontrol.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QMimeData>

namespace {

/// Ids mean nothing to another process, which may have another library open.
QString formatOfThisProcess()
{
    return QStringLiteral("application/x-vellum-files-%1").arg(QCoreApplication::applicationPid());
}

}  // namespace

void filedrag::setFiles(QMimeData& data, const QVector<qint64>& ids)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << ids;
    data.setData(formatOfThisProcess(), bytes);
}

QVector<qint64> filedrag::filesOf(const QMimeData& data)
{
    QVector<qint64> ids;
    QDataStream stream(data.data(formatOfThisProcess()));
    stream >> ids;
    return stream.status() == QDataStream::Ok ? ids : QVector<qint64>();
}

qint64 filedrag::tagOf(const QMimeData& data)
{
    qint64 id = 0;
    QDataStream stream(data.data(QString::fromLatin1(tagManagerTagFormat)));
    stream >> id;
    return stream.status() == QDataStream::Ok ? id : 0;
}
