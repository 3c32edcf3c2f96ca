// SPDX-License-Identifier: MIT
#pragma once

#include <itagaction.h>
#include <itaggroupaction.h>

#include <QByteArray>
#include <QVector>

#include <functional>

namespace bench {

class LibraryContent;

/// One command of a person, as the window asks the host for it and as the SQL that does the same to the file.
struct LibraryCommand
{
    const char* operation;
    std::function<qint64(ITagAction& tags, ITagGroupAction& categories)> request;  ///< Returns the request's id.
    QByteArray sql;
};

/// All commands once. They succeed in a library as it was built, for each \a turn from 0 to libraryTurns.
QVector<LibraryCommand> libraryCommands(const LibraryContent& content, int turn);
constexpr int libraryTurns = 3;

}  // namespace bench
