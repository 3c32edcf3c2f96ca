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
struct MeasuredCommand
{
    const char* operation;
    std::function<qint64(ITagAction& tags, ITagGroupAction& categories)> request;  ///< Returns the request's id.
    QByteArray sql;
};

/// All commands once, in turns from 0 to libraryTurns that are to be carried out one after the other. There are only
/// tagsOfFile tags with very many files to be deleted.
QVector<MeasuredCommand> libraryCommands(const LibraryContent& content, int turn);
constexpr int libraryTurns = 9;

}  // namespace bench
