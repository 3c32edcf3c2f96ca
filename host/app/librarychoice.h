// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

class QSettings;
struct CommandLine;

/// Which library is opened, and the folder that it is brought up to date from. Paths in the file system's bytes.
struct LibraryChoice
{
    Q_DECLARE_TR_FUNCTIONS(LibraryChoice)

public:
    QByteArray file;    ///< Database; created when there is a folder and no such file.
    QByteArray folder;  ///< Absolute; empty when the library is opened as it is.
    /// The folder that the library is brought up to date from otherwise, while it is not there; folder is empty then.
    QByteArray absentFolder;
    bool rereads = false;  ///< Every picture is to be read again.
    QString error;         ///< Why there is nothing to open, in words for the user; empty otherwise.
    bool isNew = false;    ///< The file does not exist yet.
    /// Nothing was named, and nothing that was opened before is there any more: there is an error, but a person may
    /// still choose.
    bool isUndecided = false;

    /// What the command line names, else what was opened last.
    [[nodiscard]] static LibraryChoice make(const CommandLine& commandLine, const QSettings& settings);
    /// Remembers this choice for the next start.
    void save(QSettings& settings) const;
    /// The name that the user knows the library by.
    [[nodiscard]] QString title() const;
};
