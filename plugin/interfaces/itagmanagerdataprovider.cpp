// SPDX-License-Identifier: MIT
#include "itagmanagerdataprovider.h"

ITagManagerDataProvider::ITagManagerDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagManagerDataProvider::~ITagManagerDataProvider() = default;
