// SPDX-License-Identifier: MIT
#include "host/app/commands/librarychoice.h"

#include "host/app/commands/commandline.h"
#include "host/app/commands/picturefile.h"
#include "host/library/computer/computerstate.h"
#include "host/library/records/plainpath.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <sys/stat.h>

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

QString shown(const QByteArray& path)
{
    return QString::fromUtf8(path);
}

}  // namespace

LibraryChoice LibraryChoice::make(const CommandLine& commandLine, const QSettings& settings)
{
    LibraryChoice choice;
    choice.rereads = commandLine.reread;
    if (commandLine.libraryFile.isEmpty() && commandLine.folder.isEmpty())
        choice.chooseLast(settings);
    else
        choice.choose(commandLine);
    if (!choice.error.isEmpty())
        return choice;
    choice.isNew = !exists(choice.file);
    if (choice.file.isEmpty())
        choice.error = tr("There is no home folder to keep the library in; name its file with --library FILE");
    else if (choice.isNew && choice.folders.isEmpty())
        choice.error = tr("There is no library %1").arg(shown(choice.file));
    else if (QFile::encodeName(QFile::decodeName(choice.file)) != choice.file)
        choice.error = tr("This is not possible as the name of a library: %1").arg(shown(choice.file));
    return choice;
}

void LibraryChoice::choose(const CommandLine& commandLine)
{
    file = commandLine.libraryFile.isEmpty() ? folderlibrary::defaultFile(commandLine.folder) : commandLine.libraryFile;
    if (commandLine.folder.isEmpty()) {
        chooseRootsOf(folderlibrary::foldersOf(file));
        return;
    }
    const QByteArray folder = plainPath(commandLine.folder);
    if (isFolder(folder)) {
        folders = {folder};
        if (exists(file))
            followMove(folderlibrary::movedRoot(file, folder), commandLine.relocate);
        else if (commandLine.libraryFile.isEmpty())
            followMove(folderlibrary::movedRoot(folder), commandLine.relocate);
    } else if (folderlibrary::foldersOf(file).contains(folder)) {
        // Its disk is not connected; what the library knows of its pictures can still be shown.
        absentFolders = {folder};
    } else {
        error = tr("There is no folder %1").arg(shown(commandLine.folder));
    }
}

void LibraryChoice::chooseLast(const QSettings& settings)
{
    file = settings.value(fileKey).toByteArray();
    if (file.isEmpty()) {
        isUndecided = true;
        error = tr("No library has been opened yet. Name a folder of pictures: vellum FOLDER");
        return;
    }
    const QVector<QByteArray> roots = folderlibrary::foldersOf(file);
    const QByteArray folder = settings.value(folderKey).toByteArray();
    chooseRootsOf(roots.isEmpty() && !folder.isEmpty() ? QVector<QByteArray>{folder} : roots);
    isUndecided = !exists(file);
    if (isUndecided && folders.isEmpty())
        error = tr("There is no folder %1").arg(shown(folder));
}

void LibraryChoice::chooseRootsOf(const QVector<QByteArray>& roots)
{
    for (const QByteArray& root : roots)
        (isFolder(root) ? folders : absentFolders).append(root);
}

void LibraryChoice::followMove(const std::optional<MovedRoot>& found, const std::optional<bool>& relocate)
{
    if (!found)
        return;
    // A root without a mount on this computer, in the library that was named or belongs to the folder, needs no
    // confirmation.
    const bool isCertain = found->from.isEmpty() && found->libraryFile == file;
    if (!isCertain && relocate && !*relocate)
        return;
    moved = found;
    file = found->libraryFile;
    if (!isCertain && !relocate)
        error =
            tr("The pictures in %1 were in %2, where they are gone. Was the folder moved? Answer with --relocate yes "
               "to go on with its library, or with --relocate no.")
                .arg(shown(moved->folder), moved->from.isEmpty() ? moved->name : shown(moved->from));
}

void LibraryChoice::save(QSettings& settings) const
{
    if (!folders.isEmpty())
        settings.setValue(folderKey, folders.constFirst());
    else if (settings.value(fileKey).toByteArray() != plainPath(file))
        settings.remove(folderKey);
    settings.setValue(fileKey, plainPath(file));
}

void LibraryChoice::mountMoved(const QString& libraryId) const
{
    if (moved)
        ComputerState(libraryId).setMount(moved->rootId, moved->folder);
}

QString LibraryChoice::title() const
{
    QStringList names;
    const QVector<QByteArray> all = folders + absentFolders;
    for (const QByteArray& folder : all)
        names.append(folder == "/" ? QStringLiteral("/") : PictureFile::displayName(folder));
    return names.isEmpty() ? QFileInfo(QFile::decodeName(file)).completeBaseName() : names.join(QStringLiteral(", "));
}
