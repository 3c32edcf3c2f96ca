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
    /// The files that the last import left out, at most maxSkipped.
    [[nodiscard]] const QVector<SkippedFile>& skippedFiles() const { return m_skipped; }
    static constexpr int maxSkipped = 10'000;

    /// Starts to import the folders, if there are any. Returns true if importFinished() will be emitted.
    bool startImport(const ImportOptions& options = {});

public slots:
    void cancelImport();
    /// Imports again and removes missing pictures from the library. Does nothing while an import runs.
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
    std::unique_ptr<Importer> m_importer;  ///< Uses the library, so it is destroyed first.
    QVector<SkippedFile> m_skipped;
    ImportOptions m_options;
    QVector<QByteArray> m_folders;  ///< Not imported yet, in order.
    ImportSummary m_summary;        ///< Sum of the folders imported so far.
    bool m_isCancelled = false;     ///< Also set between two folders, when the importer is idle.
};
