// SPDX-License-Identifier: MIT
#include "host/library/memory/libraryprovider.h"

#include <itagaction.h>
#include <itaggroupaction.h>
#include <itagmanagerdataprovider.h>

LibraryProvider::LibraryProvider(const QSharedPointer<ITagAction>& tagAction,
                                 const QSharedPointer<ITagGroupAction>& groupAction,
                                 const QSharedPointer<ITagManagerDataProvider>& manager)
    : m_tagAction(tagAction)
    , m_groupAction(groupAction)
    , m_manager(manager)
{
}

LibraryProvider::~LibraryProvider() = default;

QSharedPointer<ITagAction> LibraryProvider::tagAction() const
{
    return m_tagAction;
}

QSharedPointer<ITagGroupAction> LibraryProvider::tagGroupAction() const
{
    return m_groupAction;
}

QSharedPointer<ITagManagerDataProvider> LibraryProvider::tagManagerDataProvider() const
{
    return m_manager;
}
