// SPDX-License-Identifier: MIT
#include "idataprovider.h"

IDataProvider::IDataProvider(QObject* parent)
    : QObject(parent)
{
}

IDataProvider::~IDataProvider() = default;
