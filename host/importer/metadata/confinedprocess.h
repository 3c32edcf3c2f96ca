// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/metadata/filedescriptor.h"

#include <QString>

#include <chrono>
#include <memory>
#include <sys/types.h>

/// A process that is to confine itself (see confinement), joined to this one by a socket that is its standard input. It
/// writes nowhere else, receives no terminal input, and is killed with this object. Any thread, always the same one:
/// the process ends with the thread that has started it.
class ConfinedProcess
{
public:
    /// Runs \a program with the one argument \a option. Null, with the reason in \a error, when it cannot be run.
    [[nodiscard]] static std::unique_ptr<ConfinedProcess> start(const QString& program, const QString& option,
                                                                QString* error);
    /// Kills the process. Never waits for it.
    ~ConfinedProcess();
    ConfinedProcess(const ConfinedProcess&) = delete;
    ConfinedProcess& operator=(const ConfinedProcess&) = delete;

    /// Of messages, not blocking. At its end when the process is gone.
    [[nodiscard]] int socket() const { return m_socket.number(); }
    /// Processor time that it has used.
    [[nodiscard]] std::chrono::milliseconds processorTime() const;

private:
    ConfinedProcess(pid_t process, FileDescriptor socket);

    pid_t m_process;
    FileDescriptor m_socket;
};
