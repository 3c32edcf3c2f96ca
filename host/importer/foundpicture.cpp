// SPDX-License-Identifier: MIT
#include "host/importer/foundpicture.h"

QByteArray FoundSidecar::trialStamp() const
{
    return stamp + QByteArray::number(statusChanged);
}

FileState FoundPicture::state() const
{
    FileState state;
    state.size = size;
    state.modified = modified;
    for (const FoundSidecar& sidecar : sidecars)
        state.sidecars += sidecar.stamp;
    return state;
}

QByteArray FoundPicture::trialStamp() const
{
    return QByteArray::number(size) + ',' + QByteArray::number(modified) + ',' + QByteArray::number(statusChanged);
}
