// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/importoptions.h"
#include "host/importer/importsummary.h"
#include "host/importer/metadata/readerpool.h"

#include <QObject>
#include <QThread>

#include <atomic>

class Library;

/// Imports folders into a library in the background: finds the pictures, reads their keywords in reader processes, and
/// writes in batches of one transaction each. Only what changed since the last import is read and written; pictures
/// that are gone from the folder are counted and stay in the library, unless the options say otherwise.
///
/// Lives on the library's thread, which is never blocked. The program must answer metadataReaderOption by
/// runMetadataReader(). Must be destroyed before the library; destroying it cancels.
class Importer : public QObject
{
    Q_OBJECT

public:
    explicit Importer(Library* library, QObject* parent = nullptr);
    ~Importer() override;

    /// For imports started later.
    void setReaderSettings(const ReaderPool::Settings& settings) { m_readerSettings = settings; }

    /// Starts to import the folder (the bytes of its path). False, doing nothing, while an import is running.
    bool start(const QByteArray& folder, const ImportOptions& options = {});
    [[nodiscard]] bool isRunning() const { return m_running; }

public slots:
    /// Ends a running import at the next end of a batch; finished() follows.
    void cancel();

signals:
    /// \a done of \a found files are processed; \a found is still growing while \a done is 0. At most 20 times a
    /// second, and once with both equal before a successful end.
    void progress(int done, int found);
    /// A file or a folder (the bytes of its path) could not be read and was left out.
    void skipped(const QByteArray& path, const QString& reason);
    /// Emitted exactly once for each start(), never from inside it; a new one may be started from here.
    void finished(const ImportSummary& summary);
    /// Internal: cancel() was called.
    void cancelRequested(QPrivateSignal);

private slots:
    void handleThreadEnd();

private:
    Library* m_library;
    ReaderPool::Settings m_readerSettings;
    QThread m_thread;
    std::atomic_bool m_cancelled{false};
    bool m_running = false;
    ImportSummary m_summary;
};
