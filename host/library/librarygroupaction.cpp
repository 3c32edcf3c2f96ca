// SPDX-License-Identifier: MIT
#include "host/library/librarygroupaction.h"

#include "host/library/libraryrequest.h"

LibraryGroupAction::LibraryGroupAction(LibraryEngine* engine)
    : m_engine(engine)
{
}

LibraryGroupAction::~LibraryGroupAction() = default;

template <typename Operation>
qint64 LibraryGroupAction::send(Operation operation)
{
    return libraryrequest::send(m_engine.data(), this, &ITagGroupAction::signalTagGroupResult, operation);
}

qint64 LibraryGroupAction::addTagGroup(const QString& name)
{
    return send([=](LibraryStore& store) { return store.addCategory(name); });
}

qint64 LibraryGroupAction::removeTagGroup(qint64 groupId)
{
    return send([=](LibraryStore& store) { return store.removeCategory(groupId); });
}

qint64 LibraryGroupAction::renameTagGroup(qint64 groupId, const QString& newName)
{
    return send([=](LibraryStore& store) { return store.renameCategory(groupId, newName); });
}
