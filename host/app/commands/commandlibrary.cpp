// SPDX-License-Identifier: MIT
#include "host/app/commands/commandlibrary.h"

#include "host/app/commands/commandfailure.h"
#include "host/app/commands/commandline.h"
#include "host/importer/folderwalk.h"
#include "host/library/computer/computerstate.h"
#include "host/library/library.h"
#include "host/library/readonlylibrary.h"
#include "host/library/records/plainpath.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <unistd.h>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CommandLibrary)
};

/// Put together as bytes: the path may be no UTF-8.
CommandFailure usageFailure(const QString& text, const QByteArray& path)
{
    return {CommandLine::exitUsage, text.toUtf8().replace("%1", path)};
}

/// A place in one of a library's roots.
struct Place
{
    qint64 rootId = 0;
    QByteArray path;  ///< Relative to the root.
};

/// Without following a link that the file itself is: it was found under this name.
QByteArray fullPath(const QByteArray& path)
{
    const int slash = path.lastIndexOf('/');
    const QByteArray folder = plainPath(slash < 0 ? QByteArray(".") : path.left(slash + 1));
    return (folder == "/" ? folder : folder + '/') + path.mid(slash + 1);
}

/// In the innermost of the roots that hold it.
std::optional<Place> placeOf(const QByteArray& fullPath, const QHash<qint64, QByteArray>& mounts)
{
    std::optional<Place> place;
    int longest = -1;
    for (auto mount = mounts.cbegin(); mount != mounts.cend(); ++mount) {
        const QByteArray start = mount->endsWith('/') ? *mount : *mount + '/';
        if (!fullPath.startsWith(start) || start.size() <= longest)
            continue;
        longest = start.size();
        place = Place{mount.key(), fullPath.mid(start.size())};
    }
    return place;
}

bool holdsAll(const KnownLibrary& library, const QVector<QByteArray>& fullPaths)
{
    return access(library.file.constData(), F_OK) == 0 &&
           std::all_of(fullPaths.cbegin(), fullPaths.cend(),
                       [&](const QByteArray& path) { return placeOf(path, library.mounts).has_value(); });
}

}  // namespace

QByteArray commandlibrary::fileOf(const CommandLine& commandLine)
{
    QByteArray path = commandLine.libraryPath();
    if (path.isEmpty() && !canonicalFolder(commandLine.folder))
        throw usageFailure(Words::tr("There is no folder %1"), commandLine.folder);
    if (path.isEmpty())
        throw CommandFailure{1, Words::tr("There is no home folder that holds libraries; name the library with"
                                          " --library FILE")
                                    .toUtf8()};
    if (access(path.constData(), F_OK) != 0)
        throw usageFailure(Words::tr("There is no library %1"), path);
    return path;
}

std::unique_ptr<ReadOnlyLibrary> commandlibrary::openForReading(const QByteArray& file)
{
    QString error;
    std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(QString::fromUtf8(file), &error);
    if (!reader)
        throw CommandFailure{1, error.toUtf8()};
    return reader;
}

std::unique_ptr<Library> commandlibrary::openForWriting(const QByteArray& file)
{
    QString error;
    std::unique_ptr<Library> library = Library::open(QString::fromUtf8(file), &error);
    if (!library)
        throw CommandFailure{1, error.toUtf8()};
    return library;
}

QByteArray commandlibrary::fileHolding(const CommandLine& commandLine, const QVector<QByteArray>& paths)
{
    if (!commandLine.libraryFile.isEmpty())
        return fileOf(commandLine);
    QVector<QByteArray> fullPaths;
    for (const QByteArray& path : paths)
        fullPaths.append(fullPath(path));
    QByteArrayList files;
    for (const KnownLibrary& library : ComputerState::knownLibraries()) {
        if (holdsAll(library, fullPaths))
            files.append(library.file);
    }
    if (files.isEmpty())
        throw CommandFailure{CommandLine::exitUsage,
                             Words::tr("No library holds all of these files. Import their folder first.").toUtf8()};
    if (files.size() > 1)
        throw CommandFailure{CommandLine::exitUsage,
                             Words::tr("Several libraries hold these files. Name one with --library FILE:").toUtf8() +
                                 ' ' + files.join(", ")};
    return files.constFirst();
}

QVector<qint64> commandlibrary::fileIdsAt(ReadOnlyLibrary& reader, const QVector<QByteArray>& paths)
{
    const QHash<qint64, QByteArray> mounts = ComputerState(reader.id()).mounts();
    QVector<qint64> ids;
    for (const QByteArray& path : paths) {
        const std::optional<Place> place = placeOf(fullPath(path), mounts);
        const auto id = place ? reader.fileIdAt(place->rootId, place->path) : LibraryAnswer<qint64>();
        if (!id)
            throw CommandFailure{1, id.error.toUtf8()};
        if (id.value == 0)
            throw usageFailure(Words::tr("The library does not hold the file %1"), path);
        ids.append(id.value);
    }
    return ids;
}
