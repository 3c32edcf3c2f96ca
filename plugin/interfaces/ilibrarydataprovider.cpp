// SPDX-License-Identifier: MIT
#include "ilibrarydataprovider.h"

ILibraryDataProvider::ILibraryDataProvider(QObject* parent)
    : QObject(parent)
{
}

ILibraryDataProvider::~ILibraryDataProvider() = default;
