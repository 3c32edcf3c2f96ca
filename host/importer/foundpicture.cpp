// SPDX-License-Identifier: MIT
#include "host/importer/foundpicture.h"

FileState FoundPicture::state() const
{
    FileState state;
    state.size = size;
    state.modified = modified;
    state.sidecars = sidecarStamps();
    return state;
}

QByteArray FoundPicture::sidecarStamps() const
{
    QByteArray stamps;
    for (const FoundSidecar& sidecar : sidecars)
        stamps += sidecar.stamp;
    return stamps;
}
