// SPDX-License-Identifier: MIT
#include "host/library/libraryengine.h"

#include "host/library/librarythread.h"
#include "host/library/librarywriter.h"
#include "host/library/memory/librarygroup.h"
#include "host/library/memory/librarymanager.h"
#include "host/library/memory/librarytag.h"
#include "host/library/memory/libraryview.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

/// How long the queue may keep the event loop waiting, in milliseconds: half a frame of a 60 Hz screen.
constexpr int Slice = 8;
/// Rows that come into memory at once and are told by one signal. A window with 100,000 tags takes up to 10 ms to
/// follow it; for 5,000 rows it took 140 ms.
constexpr int MostRows = 200;
/// How often to look for what other programs changed, in milliseconds.
constexpr int OutsideInterval = 1000;

}  // namespace

LibraryEngine::LibraryEngine(const std::shared_ptr<LibraryView>& view,
                             std::unique_ptr<LibraryThread<LibraryWriter>> writer)
    : m_view(view)
    , m_writer(std::move(writer))
{
    connect(&m_outsideTimer, &QTimer::timeout, this, &LibraryEngine::lookOutside);
    m_outsideTimer.start(OutsideInterval);
    m_holdTimer.setSingleShot(true);
    connect(&m_holdTimer, &QTimer::timeout, this, &LibraryEngine::releaseNews);
}

LibraryEngine::~LibraryEngine()
{
    m_writer.reset();
}

void LibraryEngine::send(Job job)
{
    m_writer->post([this, job = std::move(job)](LibraryWriter& writer) {
        deliverOutsideChange(writer);
        const Result result = job(writer.database());
        writer.noteOwnChange(result.change);
        deliver(result);
    });
}

void LibraryEngine::lookOutside()
{
    // One at a time: they must not pile up behind a long import.
    if (m_looksOutside.exchange(true))
        return;
    m_writer->post([this](LibraryWriter& writer) {
        deliverOutsideChange(writer);
        m_looksOutside = false;
    });
}

/// Called on the writing thread.
void LibraryEngine::deliverOutsideChange(LibraryWriter& writer)
{
    if (const std::optional<LibraryChange> change = writer.takeOutsideChange())
        deliver({*change, {}});
}

/// Called on the writing thread.
void LibraryEngine::deliver(const Result& result)
{
    QVector<Result> results;
    for (const LibraryChange& piece : result.change.inPieces(MostRows))
        results.append({piece, {}});
    if (results.isEmpty())
        results.append(Result());
    results.last().answer = result.answer;
    QMetaObject::invokeMethod(
        this, [this, results] { receive(results); }, Qt::QueuedConnection);
}

void LibraryEngine::setManager(const QSharedPointer<LibraryManager>& manager)
{
    m_manager = manager;
}

qint64 LibraryEngine::nextRequestId()
{
    static std::atomic<qint64> last = 0;
    return ++last;
}

void LibraryEngine::receive(const QVector<Result>& results)
{
    m_results.insert(m_results.end(), results.cbegin(), results.cend());
    m_answers += static_cast<int>(
        std::count_if(results.cbegin(), results.cend(), [](const Result& result) { return bool(result.answer); }));
    if (m_holdsNews && !m_holdTimer.isActive())
        m_holdTimer.start();
    if (!m_goesOn)
        tellNext();
}

void LibraryEngine::holdNews(int longest)
{
    m_holdsNews = true;
    m_holdTimer.setInterval(longest);
    if (!isQueueEmpty())
        m_holdTimer.start();
}

void LibraryEngine::releaseNews()
{
    m_holdsNews = false;
    m_holdTimer.stop();
    if (!m_goesOn && !isQueueEmpty()) {
        m_goesOn = true;
        QMetaObject::invokeMethod(this, &LibraryEngine::tellNext, Qt::QueuedConnection);
    }
}

void LibraryEngine::bringNextIntoMemory()
{
    const Result result = std::move(m_results.front());
    m_results.pop_front();
    queueNews(m_view->apply(result.change));
    if (!result.answer)
        return;
    m_tellings.emplace_back([this, answer = result.answer] {
        --m_answers;
        answer();
    });
}

void LibraryEngine::queueNews(const LibraryNews& news)
{
    if (!news.groupsAdded.isEmpty())
        m_tellings.emplace_back([this, ids = news.groupsAdded] { emit m_manager->signalAddTagGroups(ids); });
    for (const auto& tag : news.tagsUpdated) {
        m_tellings.emplace_back([tag] {
            if (const auto provider = tag->provider.toStrongRef())
                emit provider->signalUpdated();
        });
    }
    for (const GroupNews& group : news.groups)
        queueGroupNews(group);
    if (!news.groupsRemoved.isEmpty())
        m_tellings.emplace_back([this, ids = news.groupsRemoved] { emit m_manager->signalRemoveTagGroups(ids); });
    if (news.filesChanged)
        m_tellings.emplace_back([this] { emit filesChanged(); });
}

void LibraryEngine::queueGroupNews(const GroupNews& news)
{
    // Nobody can be connected to a provider that does not exist when its turn comes.
    m_tellings.emplace_back([news] {
        const auto provider = news.group->provider.toStrongRef();
        if (provider && !news.tagsRemoved.isEmpty())
            emit provider->signalRemoveTags(news.tagsRemoved);
        if (provider && !news.tagsAdded.isEmpty())
            emit provider->signalAddTags(news.tagsAdded);
        if (provider && !news.group->gone)
            emit provider->signalUpdated();
    });
}

void LibraryEngine::tellNext()
{
    m_goesOn = false;
    QElapsedTimer slice;
    slice.start();
    const QPointer<LibraryEngine> self = this;
    while (self && !isQueueEmpty() && !holdsQueue()) {
        if (slice.elapsed() >= Slice) {
            m_goesOn = true;
            QMetaObject::invokeMethod(this, &LibraryEngine::tellNext, Qt::QueuedConnection);
            return;
        }
        if (m_tellings.empty()) {
            bringNextIntoMemory();
            continue;
        }
        const Telling telling = std::move(m_tellings.front());
        m_tellings.pop_front();
        telling();
    }
    if (self && isQueueEmpty())
        m_holdTimer.stop();
}
