// SPDX-License-Identifier: MIT
#include "host/importer/folderlibrary.h"

#include "host/library/computer/computerstate.h"
#include "host/library/computer/datafolder.h"
#include "host/library/readonlylibrary.h"
#include "host/library/records/plainpath.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace {

// Bytes of the hash in a file name; enough that no two folders of a person share one.
constexpr int hashLength = 12;
constexpr int sampleSize = 200;

bool exists(const QByteArray& path)
{
    std::error_code error;
    return std::filesystem::exists(path.toStdString(), error);
}

bool isAtOrBelow(const QByteArray& path, const QByteArray& folder)
{
    return path == folder || path.startsWith(folder.endsWith('/') ? folder : QByteArray(folder + '/'));
}

QByteArray defaultDirectory()
{
    const QByteArray data = personalDataFolder();
    if (data.isEmpty())
        return {};
    const QByteArray directory = data + "/libraries";
    mkdir(directory.constData(), S_IRWXU);
    return plainPath(directory);
}

QVector<KnownLibrary> knownDefaultLibraries(const QByteArray& directory)
{
    QVector<KnownLibrary> libraries;
    for (const KnownLibrary& library : ComputerState::knownLibraries()) {
        if (isAtOrBelow(library.file, directory) && exists(library.file))
            libraries.append(library);
    }
    return libraries;
}

// By the library rather than its file, which may have been moved or replaced.
QHash<qint64, QByteArray> namedMountsOf(const QByteArray& libraryFile)
{
    const QString name = QFile::decodeName(libraryFile);
    if (ReadOnlyLibrary::isCurrent(name)) {
        if (const std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(name))
            return ComputerState(reader->id()).namedMounts();
    }
    const QByteArray file = plainPath(libraryFile);
    for (const KnownLibrary& library : ComputerState::knownLibraries()) {
        if (library.file == file)
            return library.mounts;
    }
    return {};
}

// Some of the pictures of a root.
using Sample = QHash<QByteArray, KnownFile>;

// Names alone are the same in many folders: cameras count from 1.
bool isMostlyIn(const QByteArray& folder, const Sample& sample)
{
    int same = 0;
    for (auto file = sample.begin(); file != sample.end(); ++file) {
        struct stat status = {};
        if (stat(QByteArray(folder + '/' + file.key()).constData(), &status) == 0 && status.st_size == file->state.size)
            ++same;
    }
    return same > 0 && same * 2 >= sample.size();
}

bool isGoneFrom(const QByteArray& folder, const Sample& sample)
{
    const QList<QByteArray> paths = sample.keys();
    return std::none_of(paths.begin(), paths.end(),
                        [&folder](const QByteArray& path) { return exists(folder + '/' + path); });
}

Sample sampleOf(ReadOnlyLibrary& reader, qint64 rootId)
{
    Sample sample;
    (void)reader.forEachFileBelow(rootId, {}, [&sample](const FileRow& file) {
        sample.insert(file.relativePath, file.known);
        return sample.size() < sampleSize;
    });
    return sample;
}

// Where a root may be when somebody names \a path. People also name a folder in it, or the one that it was put into.
QVector<QByteArray> placesFor(const QByteArray& path, const QString& rootName)
{
    QVector<QByteArray> places = {path, path + '/' + rootName.toUtf8()};
    for (int slash = path.lastIndexOf('/'); slash > 0; slash = path.lastIndexOf('/', slash - 1))
        places.append(path.left(slash));
    return places;
}

}  // namespace

QByteArray folderlibrary::defaultFile(const QByteArray& folder)
{
    const QByteArray directory = defaultDirectory();
    if (directory.isEmpty())
        return {};
    const QByteArray path = plainPath(folder);
    const QVector<KnownLibrary> libraries = knownDefaultLibraries(directory);
    for (const KnownLibrary& library : libraries) {
        if (std::find(library.mounts.begin(), library.mounts.end(), path) != library.mounts.end())
            return library.file;
    }
    // A library whose roots have moved elsewhere keeps its file.
    const auto isTaken = [&](const QByteArray& file) {
        return std::any_of(libraries.begin(), libraries.end(), [&](const KnownLibrary& library) {
            return library.file == file && !library.mounts.isEmpty() &&
                   std::none_of(library.mounts.begin(), library.mounts.end(),
                                [&path](const QByteArray& mount) { return isAtOrBelow(mount, path); });
        });
    };
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).left(hashLength).toHex();
    QByteArray file = directory + '/' + hash + ".vellum";
    for (int number = 2; isTaken(file); ++number)
        file = directory + '/' + hash + '-' + QByteArray::number(number) + ".vellum";
    return file;
}

std::optional<MovedRoot> folderlibrary::movedRoot(const QByteArray& libraryFile, const QByteArray& folder)
{
    const std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(QFile::decodeName(libraryFile));
    if (!reader)
        return {};
    const QByteArray path = plainPath(folder);
    const ComputerState computer(reader->id());
    const QHash<qint64, QByteArray> named = computer.namedMounts();
    for (const QByteArray& mount : named) {
        if (isAtOrBelow(path, mount))
            return {};
    }
    const QHash<qint64, QByteArray> mounts = computer.mounts();
    const QVector<RootRow> roots = reader->roots().value;
    for (const RootRow& root : roots) {
        const QByteArray from = mounts.value(root.id);
        const Sample sample = sampleOf(*reader, root.id);
        if (!from.isEmpty() && !isGoneFrom(from, sample))
            continue;
        for (const QByteArray& place : placesFor(path, root.name)) {
            if (isMostlyIn(place, sample))
                return MovedRoot{libraryFile, root.id, place, from, root.name};
        }
    }
    return {};
}

std::optional<MovedRoot> folderlibrary::movedRoot(const QByteArray& folder)
{
    const QDir directory(QFile::decodeName(defaultDirectory()));
    // Not only those that this computer knows of: what it knows may be lost.
    for (const QString& name : directory.entryList({QStringLiteral("*.vellum")}, QDir::Files)) {
        const QString file = directory.filePath(name);
        if (!ReadOnlyLibrary::isCurrent(file))
            continue;
        if (std::optional<MovedRoot> moved = movedRoot(QFile::encodeName(file), folder))
            return moved;
    }
    return {};
}

QVector<QByteArray> folderlibrary::foldersOf(const QByteArray& libraryFile)
{
    const QHash<qint64, QByteArray> mounts = namedMountsOf(libraryFile);
    QList<qint64> roots = mounts.keys();
    std::sort(roots.begin(), roots.end());
    QVector<QByteArray> folders;
    for (const qint64 root : qAsConst(roots))
        folders.append(mounts.value(root));
    return folders;
}
