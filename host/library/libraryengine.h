// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/librarynotifications.h"
#include "host/library/memory/requestsender.h"
#include "host/library/requests/librarywriter.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QTimer>

#include <atomic>
#include <deque>

class LibraryCategoryList;
class LibraryMemory;
template <typename Connection>
class LibraryThread;

/// What carries requests to the writing thread and their results back: first into memory, then to the providers'
/// signals, then to the answer. What other programs change in the same library goes the same way, polled for before
/// every request and once a second.
///
/// Lives on the GUI thread. Results wait in one queue, brought into memory and emitted in order, also when a receiver
/// runs an event loop of its own. That happens in slices of a few milliseconds, so that a large change does not hold up
/// the window: a change of more than 200 rows is emitted in several signals.
class LibraryEngine final : public RequestSender
{
    Q_OBJECT

public:
    LibraryEngine(const std::shared_ptr<LibraryMemory>& memory, std::unique_ptr<LibraryThread<LibraryWriter>> writer);
    /// Waits until the requests sent so far are carried out, for locks of other programs no longer than 5 seconds in
    /// all; their results are dropped.
    ~LibraryEngine() override;

    void send(ChangeKind kind, LibraryRequestBody body, Answer answer) override;
    /// Callable on any thread but the GUI thread's own, unless that needs no events meanwhile. Waits for locks of other
    /// programs until \a cancelled is set or, without that, as any other request does.
    [[nodiscard]] LibraryResult sendAndWait(ChangeKind kind, LibraryRequestBody body,
                                            const std::atomic_bool* cancelled);
    /// Tells what a request would do; waits likewise.
    [[nodiscard]] LibraryResult rehearseAndWait(LibraryRequestBody body);
    /// The provider whose category signals follow the library.
    void setManager(const QSharedPointer<LibraryCategoryList>& manager);

    /// Until releaseNotifications(), and for \a longest milliseconds after the first of them, changes stay in the queue
    /// unless an answer is in it, too: that is emitted, after what comes before it.
    void holdNotifications(int longest);
    void releaseNotifications();

signals:
    void filesChanged();
    void tagsChanged();
    /// Other programs' changes cannot be read, for a reason that is not a lock; once for each reason.
    void failed(const QString& reason);

private slots:
    void pollForeignChanges();
    void emitNext();

private:
    /// What came from the writing thread and is not in memory yet.
    struct Delivery
    {
        LibraryChange change;
        std::shared_ptr<const LibraryContents> contents;  ///< To be compared with memory first.
        std::function<void()> answer;
    };
    using Notification = std::function<void()>;

    [[nodiscard]] LibraryResult carryOut(LibraryWriter& writer, ChangeKind kind, const LibraryRequestBody& body,
                                         const LibraryTransaction::MayWait& mayWait, const Answer& answer);
    [[nodiscard]] LibraryTransaction::MayWait patience() const;
    void deliver(const LibraryWriter::ForeignChanges& foreign);
    void deliver(const LibraryChange& change, const std::function<void()>& answer);
    void post(const QVector<Delivery>& deliveries);
    void reportPollFailure(const QString& error);
    void receive(const QVector<Delivery>& deliveries);
    [[nodiscard]] bool isQueueEmpty() const { return m_notifications.empty() && m_deliveries.empty(); }
    [[nodiscard]] bool holdsQueue() const { return m_holdsNotifications && m_answers == 0; }
    void bringNextIntoMemory();
    void queueNotifications(const LibraryNotifications& notifications);
    void queueCategoryNotification(const CategoryNotification& notification);

    std::shared_ptr<LibraryMemory> m_memory;
    std::unique_ptr<LibraryThread<LibraryWriter>> m_writer;
    QSharedPointer<LibraryCategoryList> m_manager;
    std::deque<Delivery> m_deliveries;
    std::deque<Notification> m_notifications;  ///< Of what is in memory, emitted before the next change comes into it.
    int m_answers = 0;                         ///< In both queues.
    bool m_holdsNotifications = false;
    QTimer m_holdTimer;            ///< Runs while something is held back.
    bool m_isSliceQueued = false;  ///< The next slice of notifications is on its way.
    QTimer m_pollTimer;
    std::atomic<bool> m_isPolling = false;
    std::atomic<qint64> m_closingUntil = 0;  ///< When to give up on locks, as QDeadlineTimer counts; 0 while open.
    bool m_isIdle = true;                    ///< No request since the last poll. Writing thread only.
    QString m_lastFailure;                   ///< That was emitted.
};
