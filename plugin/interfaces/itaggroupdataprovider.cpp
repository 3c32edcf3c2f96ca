// SPDX-License-Identifier: MIT
#include "itaggroupdataprovider.h"

ITagGroupDataProvider::ITagGroupDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagGroupDataProvider::~ITagGroupDataProvider() = default;
