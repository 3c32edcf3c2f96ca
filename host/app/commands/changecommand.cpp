// SPDX-License-Identifier: MIT
#include "host/app/commands/changecommand.h"

#include "host/app/commands/commandfailure.h"
#include "host/app/commands/commandlibrary.h"
#include "host/app/commands/commandline.h"
#include "host/library/library.h"
#include "host/library/readonlylibrary.h"
#include "host/library/records/tagname.h"
#include "host/library/requests/librarycommand.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ChangeCommand)
};

/// The tags of a library by name.
class TagNames
{
public:
    explicit TagNames(ReadOnlyLibrary& reader)
    {
        const auto tags = reader.tags();
        if (!tags)
            throw CommandFailure{1, tags.error.toUtf8()};
        for (const TagRow& tag : tags.value)
            m_ids.insert(tagname::key(tag.name), tag.id);
    }

    [[nodiscard]] qint64 idOf(const QString& name) const
    {
        const auto id = m_ids.constFind(tagname::key(name));
        if (id == m_ids.constEnd())
            throw CommandFailure{CommandLine::exitUsage, Words::tr("There is no tag \"%1\".").arg(name).toUtf8()};
        return *id;
    }

    [[nodiscard]] QVector<qint64> idsOf(const QStringList& names) const
    {
        QVector<qint64> ids;
        for (const QString& name : names)
            ids.append(idOf(name));
        return ids;
    }

private:
    QHash<QString, qint64> m_ids;
};

LibraryCommand commandFor(const CommandLine& commandLine, ReadOnlyLibrary& reader)
{
    const TagNames names(reader);
    const TagChanges& changes = commandLine.changes;
    if (!changes.merge.isEmpty())
        return LibraryCommand::mergeTags(names.idsOf(changes.merge), names.idOf(changes.mergeInto));
    if (!changes.rename.isEmpty())
        return LibraryCommand::renameTag(names.idOf(changes.rename.constFirst()), changes.rename.constLast());
    return LibraryCommand::tagFiles(
        {commandlibrary::fileIdsAt(reader, changes.files), {}, changes.put, names.idsOf(changes.takeOff)});
}

void printChange(const LibraryResult& result)
{
    int added = 0;
    int removed = 0;
    for (const int more : result.change.fileCountChanges)
        (more > 0 ? added : removed) += std::abs(more);
    const int printed =
        printf("links added: %d, links removed: %d, tags created: %d, tags renamed: %d, tags removed: %d\n", added,
               removed, int(result.change.tagsCreated.size()), int(result.change.tagsChanged.size()),
               int(result.change.tagsDeleted.size()));
    requirePrinted(printed >= 0);
}

}  // namespace

int runChangeCommand(const CommandLine& commandLine)
{
    return exitStatusOf([&] {
        const TagChanges& changes = commandLine.changes;
        const QByteArray file = changes.files.isEmpty() ? commandlibrary::fileOf(commandLine)
                                                        : commandlibrary::fileHolding(commandLine, changes.files);
        const auto reader = commandlibrary::openForReading(file);
        const LibraryCommand command = commandFor(commandLine, *reader);
        const auto library = commandlibrary::openForWriting(file);
        const LibraryResult result =
            library->carryOutAndWait(command, changes.isRehearsal ? Library::Mode::Rehearsal : Library::Mode::Commit);
        if (!result.succeeded())
            throw CommandFailure{1, result.message.toUtf8()};
        printChange(result);
    });
}
