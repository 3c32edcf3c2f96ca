// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/commands/librarychoice.h"
#include "host/importer/importoptions.h"
#include "host/importer/importsummary.h"
#include "host/importer/skippedfile.h"

#include <QObject>
#include <QVector>

#include <memory>

class Importer;
class Library;

/// The open library together with the import that brings it up to date. GUI thread only.
class LibrarySession : public QObject
{
    Q_OBJECT

public:
    /// Null when the library cannot be opened, with the reason in \a error.
    static std::unique_ptr<LibrarySession> open(const LibraryChoice& choice, QString* error);
    ~LibrarySession() override;

    [[nodiscard]] Library& library() const { return *m_library; }
    [[nodiscard]] const LibraryChoice& choice() const { return m_choice; }
    /// What the last import left out, at most maxSkipped entries.
    [[nodiscard]] const QVector<SkippedFile>& skippedFiles() const { return m_skipped; }
    static constexpr int maxSkipped = 10'000;

    /// Starts to import the folders, if there are any. True when importFinished() will follow.
    bool startImport(const ImportOptions& options = {});

public slots:
    void cancelImport();
    /// Imports again and takes the pictures that are missing out of the library. Does nothing while an import runs.
    void forgetMissing();

signals:
    void importProgress(int done, int found);
    void importFinished(const ImportSummary& summary);

private slots:
    void importNext(const ImportSummary& summary);

private:
    LibrarySession(const LibraryChoice& choice, std::unique_ptr<Library> library);

    LibraryChoice m_choice;
    std::unique_ptr<Library> m_library;
    std::unique_ptr<Importer> m_importer;  ///< Uses the library, so it goes first.
    QVector<SkippedFile> m_skipped;
    ImportOptions m_options;
    QVector<QByteArray> m_folders;  ///< Still to be imported, one after the other.
    ImportSummary m_summary;        ///< Of those imported.
    bool m_isCancelled = false;     ///< Also between two folders, when the importer is idle.
};
