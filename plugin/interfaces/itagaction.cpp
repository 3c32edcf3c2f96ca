// SPDX-License-Identifier: MIT
#include "itagaction.h"

ITagAction::ITagAction(QObject* parent)
    : QObject(parent)
{
}

ITagAction::~ITagAction() = default;
