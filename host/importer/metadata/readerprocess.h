// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QQueue>
#include <QTimer>

#include <chrono>
#include <memory>

struct MetadataAnswer;

/// One reader process, within limits of memory and time, started anew whenever a file has brought it down: that file is
/// then answered with the reason. Lives on one thread with an event loop; never blocks it.
class ReaderProcess : public QObject
{
    Q_OBJECT

public:
    /// \a program is called with metadataReaderOption. \a fileLimit is the longest time for one file.
    ReaderProcess(const QString& program, std::chrono::milliseconds fileLimit, QObject* parent = nullptr);
    ~ReaderProcess() override;

    /// Answered later by answered(), in the order of the calls, with the same \a index.
    void read(int index, const QByteArray& path);
    /// Files not answered yet.
    [[nodiscard]] int pending() const { return m_requests.size(); }

signals:
    void answered(int index, const MetadataAnswer& answer);
    /// The process cannot be run at all; nothing more is answered.
    void unavailable(const QString& reason);

private slots:
    void readOutput();
    void endHangingProcess();
    void handleEnd();
    void handleStartFailure(QProcess::ProcessError error);

private:
    struct Request
    {
        int index;
        QByteArray path;
    };

    void start();
    void handleLine(const QByteArray& line);
    void giveUpOnProcess();
    [[nodiscard]] QString reasonOfEnd() const;

    QString m_program;
    QQueue<Request> m_requests;
    QTimer m_fileTimer;
    bool m_ready = false;
    bool m_tookTooLong = false;
    bool m_wentWrong = false;  // What it wrote after the point that was read so far answers nothing.
    std::unique_ptr<QProcess> m_process;
};
