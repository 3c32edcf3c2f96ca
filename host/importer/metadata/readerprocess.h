// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/metadata/readermessage.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

#include <chrono>
#include <deque>
#include <memory>

class ConfinedProcess;
class QSocketNotifier;

/// One reader process: confined, started when there is a file to read, and restarted when a file crashes or stalls it;
/// only that file fails. Lives on one thread with an event loop; never blocks it.
class ReaderProcess : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        QString program;  ///< Runs readerservice::serve() when called with the option.
        QString option;   ///< Its one argument.
        /// The longest time for one file: processor time, or six times as much by the clock on a machine that is busy.
        std::chrono::milliseconds fileLimit = std::chrono::seconds(10);
    };

    explicit ReaderProcess(const Settings& settings, QObject* parent = nullptr);
    ~ReaderProcess() override;

    /// Answered later by answered() or failed(), in the order of the calls, with the same \a index.
    void read(int index, ReaderRequest request);
    /// Ends the process, whose last answer was none; another one reads the files that are pending.
    void replace();
    /// After unavailable(): the files that were not answered, for others to read.
    [[nodiscard]] QVector<int> takePending();
    /// Files not answered yet.
    [[nodiscard]] int pending() const { return int(m_requests.size()); }

    /// The reason that files fail with when they bring the process down.
    [[nodiscard]] static QString downfall();

signals:
    void answered(int index, const QByteArray& answer);
    /// The file cannot be read, for \a reason.
    void failed(int index, const QString& reason);
    /// No process can be run, or none be confined; nothing more is answered.
    void unavailable(const QString& reason);

private slots:
    void receive();
    void handleDelay();

private:
    struct Request
    {
        int index;
        ReaderRequest request;
    };

    void start();
    void stop();
    void sendWaiting();
    void watchTime();
    void readFrames();
    bool handleFirstFrame(const QByteArray& frame);
    void handleEnd();
    void giveUp(const QString& reason);
    void failFirst(const QString& reason);

    Settings m_settings;
    std::deque<Request> m_requests;  // In order; the first m_sent of them are with the process.
    size_t m_sent = 0;
    QTimer m_timer;                            // For the first request, or for the start of the process.
    std::chrono::milliseconds m_timeBefore{};  // Processor time when the first request's turn came.
    int m_delays = 0;                          // Times that the timer has run out since.
    QByteArray m_buffer;                       // What was received and is no whole frame yet.
    bool m_ready = false;
    bool m_unavailable = false;
    std::unique_ptr<ConfinedProcess> m_process;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
