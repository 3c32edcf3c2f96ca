// SPDX-License-Identifier: MIT
#include "itagdataprovider.h"

ITagDataProvider::ITagDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagDataProvider::~ITagDataProvider() = default;
