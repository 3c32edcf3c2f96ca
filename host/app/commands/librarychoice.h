// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/folderlibrary.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

class QSettings;
struct CommandLine;

/// Which library is opened, and the folders that it is brought up to date from. Paths in the file system's bytes.
struct LibraryChoice
{
    Q_DECLARE_TR_FUNCTIONS(LibraryChoice)

public:
    QByteArray file;              ///< Database; created when there is a folder and no such file.
    QVector<QByteArray> folders;  ///< Absolute; empty when the library is opened as it is.
    /// Folders that the library would be brought up to date from, were they there.
    QVector<QByteArray> absentFolders;
    bool rereads = false;  ///< Every picture is to be read again.
    QString error;         ///< Why there is nothing to open, in words for the user; empty otherwise.
    bool isNew = false;    ///< The file does not exist yet.
    /// Nothing was named, and nothing that was opened before is there any more: there is an error, but a person may
    /// still choose.
    bool isUndecided = false;
    /// The folder named seems to be a root of this library that was moved. Unless it was asked before whether that is
    /// so (CommandLine::relocate), there is an error, but a person may still answer.
    std::optional<MovedRoot> moved;

    /// What the command line names, else what was opened last.
    [[nodiscard]] static LibraryChoice make(const CommandLine& commandLine, const QSettings& settings);
    /// Remembers this choice for the next start.
    void save(QSettings& settings) const;
    /// Once the library is open: tells where its root is that was moved, if one was. \a libraryId is Library::id().
    void mountMoved(const QString& libraryId) const;
    /// The name that the user knows the library by.
    [[nodiscard]] QString title() const;

private:
    void choose(const CommandLine& commandLine);
    void chooseLast(const QSettings& settings);
    void chooseRootsOf(const QVector<QByteArray>& roots);
    void followMove(const std::optional<MovedRoot>& found, const std::optional<bool>& relocate);
};
