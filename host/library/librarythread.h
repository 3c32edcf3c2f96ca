// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QThread>

#include <functional>
#include <future>
#include <memory>

/// A thread with a connection of its own to a library (a LibraryDatabase or a ReadOnlyLibrary), which runs jobs one
/// after the other in the order posted.
template <typename Connection>
class LibraryThread
{
public:
    /// Makes the connection, on the thread; null when that failed, with the reason in \a error. Must not throw.
    using Opening = std::function<std::unique_ptr<Connection>(QString* error)>;
    /// Runs on the thread. Must not throw.
    using Job = std::function<void(Connection& connection)>;

    LibraryThread() { m_thread.setObjectName(QStringLiteral("library")); }
    /// Runs what was posted so far, then closes the connection and ends the thread.
    ~LibraryThread();

    /// Starts the thread and opens its connection; waits for that. False when it failed, with the reason in \a error;
    /// nothing may be posted then.
    [[nodiscard]] bool start(Opening opening, QString* error);
    /// Callable on any thread once started.
    void post(Job job);

private:
    Q_DISABLE_COPY(LibraryThread)

    QThread m_thread;
    QObject m_context;  ///< Lives on the thread while it runs.
    std::unique_ptr<Connection> m_connection;
};

template <typename Connection>
LibraryThread<Connection>::~LibraryThread()
{
    if (!m_thread.isRunning())
        return;
    QThread* const home = QThread::currentThread();
    QMetaObject::invokeMethod(
        &m_context,
        [this, home] {
            m_connection.reset();
            m_context.moveToThread(home);
            m_thread.quit();
        },
        Qt::QueuedConnection);
    m_thread.wait();
}

template <typename Connection>
bool LibraryThread<Connection>::start(Opening opening, QString* error)
{
    m_thread.start();
    if (!m_thread.isRunning() && !m_thread.isFinished()) {
        *error = QCoreApplication::translate("LibraryThread", "The system has no room for another thread.");
        return false;
    }
    m_context.moveToThread(&m_thread);
    const auto failure = std::make_shared<std::promise<QString>>();
    QMetaObject::invokeMethod(
        &m_context,
        [this, failure, opening = std::move(opening)] {
            QString reason;
            m_connection = opening(&reason);
            failure->set_value(reason);
        },
        Qt::QueuedConnection);
    *error = failure->get_future().get();
    return error->isEmpty();
}

template <typename Connection>
void LibraryThread<Connection>::post(Job job)
{
    QMetaObject::invokeMethod(
        &m_context, [this, job = std::move(job)] { job(*m_connection); }, Qt::QueuedConnection);
}
