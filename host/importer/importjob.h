// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/folderwalk.h"
#include "host/importer/importoptions.h"
#include "host/importer/importsummary.h"
#include "host/importer/importtarget.h"
#include "host/importer/metadata/readerpool.h"

#include <QElapsedTimer>
#include <QObject>

#include <atomic>
#include <memory>
#include <optional>

class ComputerState;
class Library;
class UnreadableFiles;

/// One import of one folder, on a thread of its own that has an event loop and that it may block.
class ImportJob : public QObject
{
    Q_OBJECT

public:
    /// \a library and \a cancelled outlive the job; the flag may be set on any thread.
    ImportJob(Library* library, const QByteArray& folder, const ImportOptions& options,
              const ReaderPool::Settings& settings, const std::atomic_bool& cancelled);
    ~ImportJob() override;

public slots:
    /// Does everything; finished() is emitted at the end. Called once.
    void run();
    /// Ends the reading at once if the flag is set by now.
    void checkCancelled();

signals:
    void progress(int done, int found);
    void skipped(const QByteArray& path, const QString& reason);
    void finished(const ImportSummary& summary);

private slots:
    void handleAnswer(int index, const MetadataAnswer& answer);
    void fail(const QString& reason);

private:
    /// A picture whose files are being read.
    struct Reading
    {
        const FoundPicture* picture;
        int missing;  // Answers still to come.
        bool unreadable;
        QVector<QStringList> keywords;         // Of the picture and of its sidecars, in order.
        QVector<std::optional<qint64>> taken;  // Of the same.
        QVector<bool> isRead;                  // Of the same.
    };
    /// One file that is being read: the picture itself or one of its sidecars.
    struct Part
    {
        int reading;
        int position;  // In Reading::keywords; 0 is the picture.
    };

    [[nodiscard]] bool walk();
    [[nodiscard]] bool collectChanged();
    /// \a known is null for a picture that the library does not have.
    void collect(const FoundPicture& picture, const KnownFile* known);
    [[nodiscard]] bool isToBeRead(const FoundPicture& picture, const KnownFile* known);
    void addReading(const FoundPicture& picture);
    void startReading();
    void completeReading(Reading& reading);
    [[nodiscard]] QVector<QString> keywordsOf(const Reading& reading);
    void writeBatch();
    void lookForVanished();
    [[nodiscard]] bool account(const LibraryResult& result);
    void noteUnreadable(const QByteArray& path, const QByteArray& stamp, const QString& reason);
    void reportSkipped(const QByteArray& path, const QString& reason);
    void reportProgress(bool always = false);
    void conclude();
    void end();

    ImportTarget m_target;
    QByteArray m_folder;
    ImportOptions m_options;
    ReaderPool::Settings m_settings;
    const std::atomic_bool& m_cancelled;
    FolderWalk m_walk;
    std::unique_ptr<ComputerState> m_computer;
    std::unique_ptr<UnreadableFiles> m_unreadable;
    std::unique_ptr<ReaderPool> m_pool;
    std::vector<Reading> m_readings;
    std::vector<Part> m_parts;  // In the order in which they were given to the pool.
    QVector<ImportedFile> m_batch;
    ImportSummary m_summary;
    QElapsedTimer m_sinceProgress;
    int m_done = 0;
    bool m_ended = false;
};
