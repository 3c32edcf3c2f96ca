// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/librarynews.h"
#include "host/library/records/librarychange.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>

class LibraryDatabase;
class LibraryManager;
template <typename Connection>
class LibraryThread;
class LibraryView;
class LibraryWriter;

/// What carries requests to the writing thread and their results back: first into memory, then to the providers'
/// signals, then to the answer. What other programs change in the same file goes the same way, looked for before every
/// request and once a second.
///
/// Lives on the GUI thread. Results wait in one queue, brought into memory and told in order, also when a receiver runs
/// an event loop of its own. That happens in slices of a few milliseconds, so that a large change does not hold up the
/// window: a change of more than 200 rows is told in several signals.
class LibraryEngine : public QObject
{
    Q_OBJECT

public:
    /// What a job leaves for the GUI thread. The answer is called after everything else was told.
    struct Result
    {
        LibraryChange change;
        std::function<void()> answer;
    };
    /// Runs on the writing thread, in one transaction of its own. Must not throw.
    using Job = std::function<Result(LibraryDatabase& database)>;

    LibraryEngine(const std::shared_ptr<LibraryView>& view, std::unique_ptr<LibraryThread<LibraryWriter>> writer);
    /// Waits until the jobs sent so far are done; their results are dropped.
    ~LibraryEngine() override;

    /// Callable on any thread.
    void send(Job job);
    /// The provider whose category signals follow the library.
    void setManager(const QSharedPointer<LibraryManager>& manager);

    /// Until releaseNews(), and for \a longest milliseconds after the first of them, changes stay in the queue unless
    /// an answer is in it, too: that is emitted, after what comes before it.
    void holdNews(int longest);
    void releaseNews();

    /// A number that no other request of the process has; above 0.
    [[nodiscard]] static qint64 nextRequestId();

signals:
    void filesChanged();

private slots:
    void lookOutside();
    void tellNext();

private:
    using Telling = std::function<void()>;

    void deliverOutsideChange(LibraryWriter& writer);
    void deliver(const Result& result);
    void receive(const QVector<Result>& results);
    [[nodiscard]] bool isQueueEmpty() const { return m_tellings.empty() && m_results.empty(); }
    [[nodiscard]] bool holdsQueue() const { return m_holdsNews && m_answers == 0; }
    void bringNextIntoMemory();
    void queueNews(const LibraryNews& news);
    void queueGroupNews(const GroupNews& news);

    std::shared_ptr<LibraryView> m_view;
    std::unique_ptr<LibraryThread<LibraryWriter>> m_writer;
    QSharedPointer<LibraryManager> m_manager;
    std::deque<Result> m_results;    ///< Not in memory yet.
    std::deque<Telling> m_tellings;  ///< Of what is in memory, told before the next change comes into it.
    int m_answers = 0;               ///< In both queues.
    bool m_holdsNews = false;
    QTimer m_holdTimer;     ///< Runs while something is held back.
    bool m_goesOn = false;  ///< The next slice of telling is on its way.
    QTimer m_outsideTimer;
    std::atomic<bool> m_looksOutside = false;
};
