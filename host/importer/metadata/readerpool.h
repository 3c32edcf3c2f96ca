// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QVector>

#include <chrono>
#include <memory>
#include <vector>

class ReaderProcess;
struct MetadataAnswer;

/// Reads the keywords of many files with several reader processes at once. If only some of them can be started, those
/// read all files. Lives on one thread with an event loop, which it blocks only to open a file.
class ReaderPool : public QObject
{
    Q_OBJECT

public:
    /// How files are read.
    struct Settings
    {
        /// The program that is its own reader process; see metadataReaderOption. Empty: the running program.
        QString program;
        /// At most so many at once; 0: one for each core.
        int processes = 0;
        /// The longest time for one file; a reader process that takes longer is ended.
        std::chrono::milliseconds fileLimit = std::chrono::seconds(10);
    };

    explicit ReaderPool(const Settings& settings, QObject* parent = nullptr);
    ~ReaderPool() override;

    /// Reads the files at \a paths; called once. Each is answered once, in any order, by its index in \a paths.
    void read(const QVector<QByteArray>& paths);

signals:
    void answered(int index, const MetadataAnswer& answer);
    /// No reader process can be run; nothing more is answered. Emitted once.
    void failed(const QString& reason);

private:
    void addProcess();
    void drop(const ReaderProcess* process, const QString& reason);
    void feed(ReaderProcess* process);
    [[nodiscard]] bool hasNext() const { return !m_returned.isEmpty() || m_next < m_paths.size(); }
    void handleAnswer(ReaderProcess* process, int index, const QByteArray& line);
    void fail(int index, const QString& reason);

    Settings m_settings;
    QVector<QByteArray> m_paths;
    int m_next = 0;
    QVector<int> m_returned;  ///< Files that were given to a process that cannot be run.
    std::vector<std::unique_ptr<ReaderProcess>> m_processes;
};
