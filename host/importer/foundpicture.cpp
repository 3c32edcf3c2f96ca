// SPDX-License-Identifier: MIT
#include "host/importer/foundpicture.h"

#include "host/importer/metadata/metadatareader.h"

namespace {

/// A newer reader may read what an older one could not.
QByteArray trial(const QByteArray& stamp, qint64 statusChanged)
{
    return stamp + ',' + QByteArray::number(statusChanged) + ',' + QByteArray::number(metadataReaderVersion);
}

}  // namespace

QByteArray FoundSidecar::trialStamp() const
{
    return trial(stamp, statusChanged);
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
    return trial(QByteArray::number(size) + ',' + QByteArray::number(modified), statusChanged);
}
