// SPDX-License-Identifier: MIT
#include "iresponseinfo.h"
#include "vltagmanagerevents.h"

#include <QMetaType>
#include <QVector>

namespace {

/// Signals of the interfaces may cross threads in queued connections, which look their argument types up by name.
const struct MetaTypes
{
    MetaTypes()
    {
        qRegisterMetaType<QVector<qint64>>("QVector<qint64>");
        qRegisterMetaType<TagManagerPage>("TagManagerPage");
        qRegisterMetaType<QSharedPointer<const IResponseInfo>>("QSharedPointer<const IResponseInfo>");
    }
} registerMetaTypes;

}  // namespace
