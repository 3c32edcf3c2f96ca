// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

/// A process within a limit of memory (2 GiB of addresses) and of less priority than this one, which leaves no core
/// file and does not hear the interrupt key of the terminal.
class LimitedProcess : public QProcess
{
    Q_OBJECT

public:
    using QProcess::QProcess;

protected:
    /// Runs in the child before the program: nothing but async-signal-safe calls.
    void setupChildProcess() override;
};
