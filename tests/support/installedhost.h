// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/vltagmanagersingleton.h"
#include "tests/support/memoryhost.h"
#include "tests/support/patience.h"

/// A host in memory that the shared state uses while this object lives.
class InstalledHost : public MemoryHost
{
public:
    explicit InstalledHost(const QStringList& tagNames = {})
        : MemoryHost(tagNames)
    {
        VLTagManagerSingleton::instance()->setDataProvider(library());
        VLTagManagerSingleton::instance()->setTagColorProvider(palette());
    }

    ~InstalledHost() override
    {
        VLTagManagerSingleton::instance()->clear();
        VLTagManagerSingleton::instance()->setTagColorProvider(nullptr);
    }
};
