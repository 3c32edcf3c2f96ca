// SPDX-License-Identifier: MIT
#include "host/library/libraryengine.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/librarythread.h"
#include "host/library/memory/librarycategory.h"
#include "host/library/memory/librarycategorylist.h"
#include "host/library/memory/librarymemory.h"
#include "host/library/memory/librarytag.h"

#include <QElapsedTimer>

#include <algorithm>
#include <future>

namespace {

/// How long the queue may keep the event loop waiting, in milliseconds: half a frame of a 60 Hz screen.
constexpr int longestSlice = 8;
/// Rows that come into memory at once and are emitted by one signal. A window with 100,000 tags takes up to 10 ms to
/// follow it; for 5,000 rows it took 140 ms.
constexpr int mostRows = 200;
/// How often to poll for what other programs changed, in milliseconds.
constexpr int pollInterval = 1000;
/// How long a request waits for a lock of another program, and closing for all that are left, in milliseconds.
constexpr int longestWait = 5000;

}  // namespace

LibraryEngine::LibraryEngine(const std::shared_ptr<LibraryMemory>& memory,
                             std::unique_ptr<LibraryThread<LibraryWriter>> writer)
    : m_memory(memory)
    , m_writer(std::move(writer))
{
    connect(&m_pollTimer, &QTimer::timeout, this, &LibraryEngine::pollForeignChanges);
    m_pollTimer.start(pollInterval);
    m_holdTimer.setSingleShot(true);
    connect(&m_holdTimer, &QTimer::timeout, this, &LibraryEngine::releaseNotifications);
}

LibraryEngine::~LibraryEngine()
{
    m_closingUntil = QDeadlineTimer(longestWait).deadline();
    m_writer.reset();
}

void LibraryEngine::send(ChangeKind kind, LibraryRequestBody body, Answer answer)
{
    m_writer->post([this, kind, body = std::move(body), answer = std::move(answer)](LibraryWriter& writer) {
        (void)carryOut(writer, kind, body, patience(), answer);
    });
}

LibraryResult LibraryEngine::sendAndWait(ChangeKind kind, LibraryRequestBody body, const std::atomic_bool* cancelled)
{
    const auto done = std::make_shared<std::promise<LibraryResult>>();
    m_writer->post([this, kind, cancelled, done, body = std::move(body)](LibraryWriter& writer) {
        const LibraryTransaction::MayWait untilCancelled = [&] { return !*cancelled && m_closingUntil == 0; };
        LibraryResult result = carryOut(writer, kind, body, cancelled ? untilCancelled : patience(), {});
        if (result.status == LibraryStatus::Locked && cancelled && *cancelled)
            result.status = LibraryStatus::Cancelled;
        done->set_value(result);
    });
    return done->get_future().get();
}

LibraryResult LibraryEngine::rehearseAndWait(LibraryRequestBody body)
{
    const auto done = std::make_shared<std::promise<LibraryResult>>();
    m_writer->post([this, done, body = std::move(body)](LibraryWriter& writer) {
        done->set_value(writer.rehearse(body, patience()));
    });
    return done->get_future().get();
}

LibraryResult LibraryEngine::carryOut(LibraryWriter& writer, ChangeKind kind, const LibraryRequestBody& body,
                                      const LibraryTransaction::MayWait& mayWait, const Answer& answer)
{
    m_isIdle = false;
    LibraryWriter::ForeignChanges foreign;
    LibraryResult result = writer.carryOut(kind, body, mayWait, foreign);
    deliver(foreign);
    if (answer || !result.change.isEmpty())
        deliver(result.change, answer ? [answer, result] { answer(result); } : std::function<void()>());
    return result;
}

LibraryTransaction::MayWait LibraryEngine::patience() const
{
    return [this, own = QDeadlineTimer(longestWait)] {
        const qint64 closing = m_closingUntil;
        return !own.hasExpired() && (closing == 0 || QDeadlineTimer::current().deadline() < closing);
    };
}

void LibraryEngine::pollForeignChanges()
{
    // One at a time: they must not pile up behind a long import.
    if (m_isPolling.exchange(true))
        return;
    m_writer->post([this](LibraryWriter& writer) {
        QString error;
        const LibraryWriter::ForeignChanges foreign = writer.takeForeignChanges(&error);
        deliver(foreign);
        // After the log is emptied, other programs cannot tell that from a change by hand: they get another interval.
        m_isIdle = m_isIdle && foreign.isEmpty();
        QMetaObject::invokeMethod(
            this, [this, error] { reportPollFailure(error); }, Qt::QueuedConnection);
        if (m_isIdle) {
            try {
                writer.database().tidy();
            } catch (const LibraryError&) {
                // The next look finds the log as it is.
            }
        }
        m_isIdle = true;
        m_isPolling = false;
    });
}

void LibraryEngine::reportPollFailure(const QString& error)
{
    if (error == m_lastFailure)
        return;
    m_lastFailure = error;
    if (!error.isEmpty())
        emit failed(error);
}

/// Called on the writing thread.
void LibraryEngine::deliver(const LibraryWriter::ForeignChanges& foreign)
{
    for (const LibraryChange& change : foreign.changes)
        deliver(change, {});
    if (foreign.contents)
        post({{{}, foreign.contents, {}}});
}

/// Called on the writing thread.
void LibraryEngine::deliver(const LibraryChange& change, const std::function<void()>& answer)
{
    QVector<Delivery> deliveries;
    for (const LibraryChange& piece : change.inPieces(mostRows))
        deliveries.append({piece, {}, {}});
    if (deliveries.isEmpty())
        deliveries.append(Delivery());
    deliveries.last().answer = answer;
    post(deliveries);
}

void LibraryEngine::post(const QVector<Delivery>& deliveries)
{
    QMetaObject::invokeMethod(
        this, [this, deliveries] { receive(deliveries); }, Qt::QueuedConnection);
}

void LibraryEngine::setManager(const QSharedPointer<LibraryCategoryList>& manager)
{
    m_manager = manager;
}

void LibraryEngine::receive(const QVector<Delivery>& deliveries)
{
    m_deliveries.insert(m_deliveries.end(), deliveries.cbegin(), deliveries.cend());
    m_answers += static_cast<int>(std::count_if(deliveries.cbegin(), deliveries.cend(),
                                                [](const Delivery& delivery) { return bool(delivery.answer); }));
    if (m_holdsNotifications && !m_holdTimer.isActive())
        m_holdTimer.start();
    if (!m_isSliceQueued)
        emitNext();
}

void LibraryEngine::holdNotifications(int longest)
{
    m_holdsNotifications = true;
    m_holdTimer.setInterval(longest);
    if (!isQueueEmpty())
        m_holdTimer.start();
}

void LibraryEngine::releaseNotifications()
{
    m_holdsNotifications = false;
    m_holdTimer.stop();
    if (!m_isSliceQueued && !isQueueEmpty()) {
        m_isSliceQueued = true;
        QMetaObject::invokeMethod(this, &LibraryEngine::emitNext, Qt::QueuedConnection);
    }
}

void LibraryEngine::bringNextIntoMemory()
{
    const Delivery delivery = std::move(m_deliveries.front());
    m_deliveries.pop_front();
    if (delivery.contents) {
        LibraryChange change = m_memory->changeTo(*delivery.contents);
        // Which files the tags have may be other than before, though there are as many.
        change.filesChanged = true;
        const QVector<LibraryChange> pieces = change.inPieces(mostRows);
        for (auto piece = pieces.crbegin(); piece != pieces.crend(); ++piece)
            m_deliveries.push_front({*piece, {}, {}});
        return;
    }
    queueNotifications(m_memory->apply(delivery.change));
    if (!delivery.answer)
        return;
    m_notifications.emplace_back([this, answer = delivery.answer] {
        --m_answers;
        answer();
    });
}

void LibraryEngine::queueNotifications(const LibraryNotifications& notifications)
{
    if (!notifications.categoriesAdded.isEmpty())
        m_notifications.emplace_back(
            [this, ids = notifications.categoriesAdded] { emit m_manager->signalAddTagGroups(ids); });
    for (const auto& tag : notifications.tagsUpdated) {
        m_notifications.emplace_back([tag] {
            if (const auto provider = tag->provider.toStrongRef())
                emit provider->signalUpdated();
        });
    }
    for (const CategoryNotification& category : notifications.categories)
        queueCategoryNotification(category);
    if (!notifications.categoriesRemoved.isEmpty())
        m_notifications.emplace_back(
            [this, ids = notifications.categoriesRemoved] { emit m_manager->signalRemoveTagGroups(ids); });
    if (!notifications.tagsUpdated.isEmpty() || !notifications.categories.isEmpty())
        m_notifications.emplace_back([this] { emit tagsChanged(); });
    if (notifications.filesChanged)
        m_notifications.emplace_back([this] { emit filesChanged(); });
}

void LibraryEngine::queueCategoryNotification(const CategoryNotification& notification)
{
    // Nobody can be connected to a provider that does not exist when its turn comes.
    m_notifications.emplace_back([notification] {
        const auto provider = notification.category->provider.toStrongRef();
        if (provider && !notification.tagsRemoved.isEmpty())
            emit provider->signalRemoveTags(notification.tagsRemoved);
        if (provider && !notification.tagsAdded.isEmpty())
            emit provider->signalAddTags(notification.tagsAdded);
        if (provider && !notification.category->gone)
            emit provider->signalUpdated();
    });
}

void LibraryEngine::emitNext()
{
    m_isSliceQueued = false;
    QElapsedTimer slice;
    slice.start();
    const QPointer<LibraryEngine> self = this;
    while (self && !isQueueEmpty() && !holdsQueue()) {
        if (slice.elapsed() >= longestSlice) {
            m_isSliceQueued = true;
            QMetaObject::invokeMethod(this, &LibraryEngine::emitNext, Qt::QueuedConnection);
            return;
        }
        if (m_notifications.empty()) {
            bringNextIntoMemory();
            continue;
        }
        const Notification notification = std::move(m_notifications.front());
        m_notifications.pop_front();
        notification();
    }
    if (self && isQueueEmpty())
        m_holdTimer.stop();
}
