// SPDX-License-Identifier: MIT
#include "itaggroupaction.h"

ITagGroupAction::ITagGroupAction(QObject* parent)
    : QObject(parent)
{
}

ITagGroupAction::~ITagGroupAction() = default;
