// SPDX-License-Identifier: MIT
#include "host/app/librarychoice.h"

#include "host/app/commandline.h"
#include "host/app/picturefile.h"
#include "host/importer/defaultlibrary.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <sys/stat.h>

#include <cstdlib>
#include <memory>

namespace {

const QString folderKey = QStringLiteral("library/folder");
const QString fileKey = QStringLiteral("library/file");

bool isFolder(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool exists(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0;
}

// Absolute and without links, so that it means the same at the next start; unchanged when there is no such path.
QByteArray canonical(const QByteArray& path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.constData(), nullptr), &std::free);
    return resolved ? QByteArray(resolved.get()) : path;
}

QString shown(const QByteArray& path)
{
    return QString::fromUtf8(path);
}

}  // namespace

LibraryChoice LibraryChoice::make(const CommandLine& commandLine, const QSettings& settings)
{
    LibraryChoice choice;
    choice.file = commandLine.libraryFile;
    choice.folder = commandLine.folder;
    choice.rereads = commandLine.reread;
    const bool named = !choice.file.isEmpty() || !choice.folder.isEmpty();
    if (!named) {
        choice.file = settings.value(fileKey).toByteArray();
        choice.folder = settings.value(folderKey).toByteArray();
        if (choice.file.isEmpty()) {
            choice.isUndecided = true;
            choice.error = tr("No library has been opened yet. Name a folder of pictures: vellum FOLDER");
            return choice;
        }
    }
    if (!choice.folder.isEmpty() && !isFolder(choice.folder)) {
        // A folder on a disk that is away at the moment: what is known of its pictures can still be looked at.
        if (named || !exists(choice.file))
            choice.error = tr("There is no folder %1").arg(shown(choice.folder));
        choice.absentFolder = choice.folder;
        choice.folder.clear();
    }
    choice.isUndecided = !named && !exists(choice.file);
    if (!choice.error.isEmpty())
        return choice;
    choice.folder = choice.folder.isEmpty() ? QByteArray() : canonical(choice.folder);
    if (choice.file.isEmpty())
        choice.file = defaultLibraryPath(choice.folder);
    choice.isNew = !exists(choice.file);
    if (choice.file.isEmpty())
        choice.error = tr("There is no home folder to keep the library in; name its file with --library FILE");
    else if (choice.isNew && choice.folder.isEmpty())
        choice.error = tr("There is no library %1").arg(shown(choice.file));
    else if (QFile::encodeName(QFile::decodeName(choice.file)) != choice.file)
        choice.error = tr("This is not possible as the name of a library: %1").arg(shown(choice.file));
    return choice;
}

void LibraryChoice::save(QSettings& settings) const
{
    const QByteArray path = canonical(file);
    // Opened without its folder this time, the library keeps the one it had.
    if (!folder.isEmpty() || settings.value(fileKey).toByteArray() != path)
        settings.setValue(folderKey, folder);
    settings.setValue(fileKey, path);
}

QString LibraryChoice::title() const
{
    const QByteArray& named = folder.isEmpty() ? absentFolder : folder;
    if (!named.isEmpty())
        return named == "/" ? QStringLiteral("/") : PictureFile::displayName(named);
    return QFileInfo(QFile::decodeName(file)).completeBaseName();
}
