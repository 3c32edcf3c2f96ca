// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class HostWindow;
class QuietMoment;
struct CommandLine;

/// Renders a window to a PNG file. GUI thread only.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    Screenshot(HostWindow& window, const CommandLine& commandLine, QObject* parent = nullptr);

    /// Waits until the window is idle, renders it and writes the file. Emits finished().
    void take();

signals:
    /// \a error is in words for the user; empty if the file was written.
    void finished(const QString& error);

private:
    void write();

    HostWindow& m_window;
    const CommandLine& m_commandLine;
    QuietMoment* m_quietMoment = nullptr;
};
