// SPDX-License-Identifier: MIT
#include "host/app/commands/findcommand.h"

#include "host/app/commands/commandfailure.h"
#include "host/app/commands/commandlibrary.h"
#include "host/app/commands/commandline.h"
#include "host/app/commands/recordprinter.h"
#include "host/library/query/queryparser.h"
#include "host/library/readonlylibrary.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(FindCommand)
};

QueryTerm parsed(const QString& query)
{
    constexpr int shownLength = 30;
    const queryparser::Parsed parsed = queryparser::parse(query);
    if (parsed.term)
        return *parsed.term;
    const QString where = parsed.position < query.size()
                              ? Words::tr("The query is wrong at \"%1\" (character %2).")
                                    .arg(query.mid(parsed.position, shownLength), QString::number(parsed.position + 1))
                              : Words::tr("The query is wrong at its end.");
    throw CommandFailure{CommandLine::exitUsage, (where + ' ' + parsed.error).toUtf8()};
}

template <typename T>
T required(const LibraryAnswer<T>& answer)
{
    if (!answer)
        throw CommandFailure{1, answer.error.toUtf8()};
    return answer.value;
}

constexpr int pageSize = 1000;  // files that are read at a time

/// Each path with a NUL behind it.
void printPaths(ReadOnlyLibrary& reader, const QVector<qint64>& ids)
{
    bool isFine = true;
    for (int start = 0; start < ids.size() && isFine; start += pageSize) {
        for (const FileRow& file : required(reader.files(ids.mid(start, pageSize)))) {
            const auto size = size_t(file.path.size()) + 1;
            isFine = isFine && fwrite(file.path.constData(), 1, size, stdout) == size;
        }
    }
    requirePrinted(isFine);
}

void printRecords(ReadOnlyLibrary& reader, const QVector<qint64>& ids, bool json)
{
    QHash<qint64, QString> names;
    for (const TagRow& tag : required(reader.tags()))
        names.insert(tag.id, tag.name);
    RecordPrinter printer(json);
    printer.begin();
    for (int start = 0; start < ids.size() && printer.isFine(); start += pageSize) {
        for (const FileRow& file : required(reader.filesWithTags(ids.mid(start, pageSize)))) {
            QStringList tags;
            for (const qint64 id : file.tagIds)
                tags.append(names.value(id));
            printer.printFile(file, tags);
        }
    }
    printer.end();
    requirePrinted(printer.isFine());
}

}  // namespace

int runFindCommand(const CommandLine& commandLine)
{
    return exitStatusOf([&] {
        if (commandLine.separatesByNul && isatty(STDOUT_FILENO) == 1)
            throw CommandFailure{CommandLine::exitUsage,
                                 Words::tr("-0 prints names as they are: send them to a program or a file.").toUtf8()};
        const QueryTerm query = parsed(commandLine.query);
        const auto reader = commandlibrary::openForReading(commandlibrary::fileOf(commandLine));
        // An import may go on meanwhile.
        const ReadOnlyLibrary::Snapshot snapshot(*reader);
        for (const QString& name : required(reader->unknownNames(query)))
            printNote(Words::tr("There is no tag or category called \"%1\".").arg(name).toUtf8());
        const QVector<qint64> ids = required(reader->fileIds(FileQuery::matching(query)));
        if (commandLine.separatesByNul)
            printPaths(*reader, ids);
        else
            printRecords(*reader, ids, commandLine.json);
    });
}
