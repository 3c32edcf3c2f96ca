// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/folderlibrary.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

class QSettings;
struct CommandLine;

/// The library to open and the folders to import into it. Paths in the file system's bytes.
struct LibraryChoice
{
    Q_DECLARE_TR_FUNCTIONS(LibraryChoice)

public:
    QByteArray file;              ///< Database; created if it does not exist and there is a folder.
    QVector<QByteArray> folders;  ///< Absolute; empty if nothing is imported.
    /// Roots of the library that do not exist at the moment.
    QVector<QByteArray> absentFolders;
    bool rereads = false;  ///< Read every picture again.
    QString error;         ///< Why no library can be opened, in words for the user; empty if one can.
    bool isNew = false;    ///< The file does not exist yet.
    /// No library was named, and none was opened before or it is gone. There is an error, which asking the user for a
    /// folder can resolve.
    bool isUndecided = false;
    /// The folder seems to be a moved root of this library. Without an answer in CommandLine::relocate there is an
    /// error, which asking the user can resolve.
    std::optional<MovedRoot> moved;

    /// Chooses the library that the command line names, else the last one opened.
    [[nodiscard]] static LibraryChoice make(const CommandLine& commandLine, const QSettings& settings);
    /// Stores this choice for the next start.
    void save(QSettings& settings) const;
    /// Stores the new place of the moved root, if there is one. \a libraryId is Library::id() of the open library.
    void mountMoved(const QString& libraryId) const;
    /// The name of the library for the user.
    [[nodiscard]] QString title() const;

private:
    void choose(const CommandLine& commandLine);
    void chooseLast(const QSettings& settings);
    void chooseRootsOf(const QVector<QByteArray>& roots);
    void followMove(const std::optional<MovedRoot>& found, const std::optional<bool>& relocate);
};
