// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class HostWindow;
class QuietMoment;
struct CommandLine;

/// Renders a window to a PNG once the library is up to date and the window has come to rest. GUI thread only.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    Screenshot(HostWindow& window, const CommandLine& commandLine, QObject* parent = nullptr);

    /// Goes to the page, types the search, waits for the window to come to rest and writes the file; finished()
    /// follows.
    void take();

signals:
    /// \a error is empty when the file has been written.
    void finished(const QString& error);

private:
    void write();

    HostWindow& m_window;
    const CommandLine& m_commandLine;
    QuietMoment* m_quietMoment = nullptr;
};
