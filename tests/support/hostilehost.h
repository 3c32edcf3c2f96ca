// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/installedhost.h"

#include <functional>

/// Runs code of the test from inside every call of the plug-in; it is handed the operation's name, such as
/// "tagsByIds", when the answer stands but was not given yet.
using InsideCall = std::function<void(const char* operation)>;

/// How crooked answers are.
enum class HostLie
{
    None,
    CountsOfZero,      ///< Every count is 0, whatever was filled in.
    CountsTooHigh,     ///< Every count is a thousand too high.
    CountsBelowZero,   ///< Every count is -1.
    NullsInLists,      ///< Null pointers among the tags and the categories.
    NullRecords,       ///< No tag and no category has a record.
    NullLookUps,       ///< Categories and tags are never found.
    NullActions,       ///< There are no action objects.
    NullManager,       ///< There is no library behind the library object.
    WrongKeys,         ///< Hashes name each tag with the id of another.
    EverythingAlways,  ///< Whatever ids are asked for, all tags are answered.
    NamesAtOdds,       ///< A tag's name() differs from the name in its record.
};

struct HostileMind;

/// A host in memory between which and the plug-in stands somebody who does what no polite host does: runs any code
/// from inside the plug-in's calls and tells crooked answers. It is the shared state's host while it lives. The base
/// class is the true library; what happens to it is passed on.
class HostileHost : public InstalledHost
{
public:
    explicit HostileHost(const QStringList& tagNames = {});
    ~HostileHost() override;

    /// Asked anew, so that parts of the library may be missing from now on.
    void setLie(HostLie lie);
    void setInsideCall(InsideCall inside);
    /// Makes the shared state use this library again, as at construction.
    void install();

protected:
    void requestTaken(const QString& operation) override;

private:
    QSharedPointer<HostileMind> m_mind;
    QSharedPointer<ILibraryDataProvider> m_library;
};
