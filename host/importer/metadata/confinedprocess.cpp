// SPDX-License-Identifier: MIT
#include "host/importer/metadata/confinedprocess.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <vector>

namespace {

/// Processes that were killed. A killed process may take its time to die (a read from a dead disk, say), and nobody
/// waits for it: its remains are collected at the next occasion, or by the system once this process ends.
class Remains
{
public:
    void add(pid_t process)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_processes.push_back(process);
        collect();
    }

private:
    void collect()
    {
        const auto isCollected = [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; };
        m_processes.erase(std::remove_if(m_processes.begin(), m_processes.end(), isCollected), m_processes.end());
    }

    std::mutex m_mutex;
    std::vector<pid_t> m_processes;
};

Remains& remains()
{
    // Never destroyed: a thread that hangs in a system call may outlive everything else.
    static auto* const theRemains = new Remains;
    return *theRemains;
}

/// How a process is started. posix_spawn() does not copy this one's page tables, which takes milliseconds for a window.
class Spawning
{
public:
    Spawning()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawnattr_init(&m_attributes);
    }
    ~Spawning()
    {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_actions);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    /// Returns 0 or the error's number.
    int run(const QByteArray& program, QByteArray option, int socket, pid_t* process)
    {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawn_file_actions_adddup2(&m_actions, socket, STDIN_FILENO);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
        QByteArray name = program;
        char* const arguments[] = {name.data(), option.data(), nullptr};
        return posix_spawn(process, program.constData(), &m_actions, &m_attributes, arguments, environ);
    }

private:
    posix_spawn_file_actions_t m_actions = {};
    posix_spawnattr_t m_attributes = {};
};

}  // namespace

std::unique_ptr<ConfinedProcess> ConfinedProcess::start(const QString& program, const QString& option, QString* error)
{
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
        *error = QString::fromLocal8Bit(strerror(errno));
        return nullptr;
    }
    FileDescriptor own(ends[0]);
    const FileDescriptor others(ends[1]);
    fcntl(own.number(), F_SETFL, O_NONBLOCK);
    pid_t process = -1;
    const int failure = Spawning().run(QFile::encodeName(program), option.toLatin1(), others.number(), &process);
    if (failure != 0) {
        *error = QString::fromLocal8Bit(strerror(failure));
        return nullptr;
    }
    return std::unique_ptr<ConfinedProcess>(new ConfinedProcess(process, std::move(own)));
}

ConfinedProcess::ConfinedProcess(pid_t process, FileDescriptor socket)
    : m_process(process)
    , m_socket(std::move(socket))
{
}

ConfinedProcess::~ConfinedProcess()
{
    kill(m_process, SIGKILL);
    remains().add(m_process);
}

std::chrono::milliseconds ConfinedProcess::processorTime() const
{
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(m_process, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return {};
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::seconds(time.tv_sec) +
                                                                 std::chrono::nanoseconds(time.tv_nsec));
}
