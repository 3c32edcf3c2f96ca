// SPDX-License-Identifier: MIT
#include "host/library/library.h"

#include "host/library/computer/computerstate.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/libraryengine.h"
#include "host/library/libraryopening.h"
#include "host/library/librarythread.h"
#include "host/library/memory/librarycategoryaction.h"
#include "host/library/memory/librarycategorylist.h"
#include "host/library/memory/librarymemory.h"
#include "host/library/memory/libraryprovider.h"
#include "host/library/memory/librarytagaction.h"
#include "host/library/readonlylibrary.h"
#include "host/library/records/plainpath.h"
#include "host/library/requests/importbatch.h"
#include "host/library/requests/rootrequests.h"
#include "host/library/requests/version1keywords.h"

#include <QFile>
#include <QPointer>

namespace {

using WritingThread = LibraryThread<LibraryWriter>;
using ReadingThread = LibraryThread<ReadOnlyLibrary>;

/// For the writing thread; leaves what was read in \a memory, which nobody else uses yet.
std::unique_ptr<LibraryWriter> openForWriting(const QString& path, LibraryMemory& memory, QString* error)
{
    try {
        auto writer = std::make_unique<LibraryWriter>(libraryopening::connectForWriting(path));
        memory.load(writer->takeContents());
        return writer;
    } catch (const LibraryError& failure) {
        *error = failure.message();
        return nullptr;
    }
}

}  // namespace

/// The parts of an open library, those that need others after them.
struct Library::Private
{
    QString path;
    QString id;
    std::unique_ptr<LibraryEngine> engine;
    QSharedPointer<ILibraryDataProvider> provider;
    std::shared_ptr<std::atomic<bool>> closing = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<ReadingThread> reader;  ///< Made by the first query.

    void start(const std::shared_ptr<LibraryMemory>& memory, std::unique_ptr<WritingThread> writer);
    bool startReader(QString* error);
};

void Library::Private::start(const std::shared_ptr<LibraryMemory>& memory, std::unique_ptr<WritingThread> writer)
{
    engine = std::make_unique<LibraryEngine>(memory, std::move(writer));
    const auto manager = QSharedPointer<LibraryCategoryList>::create(memory);
    engine->setManager(manager);
    provider =
        QSharedPointer<LibraryProvider>::create(QSharedPointer<LibraryTagAction>::create(engine.get()),
                                                QSharedPointer<LibraryCategoryAction>::create(engine.get()), manager);
}

bool Library::Private::startReader(QString* error)
{
    if (reader)
        return true;
    auto thread = std::make_unique<ReadingThread>();
    if (!thread->start([path = path](QString* reason) { return ReadOnlyLibrary::open(path, reason); }, error))
        return false;
    reader = std::move(thread);
    return true;
}

std::unique_ptr<Library> Library::open(const QString& path, QString* error)
{
    QString reason;
    auto members = std::make_unique<Private>();
    try {
        // Kept open until the writing thread has its connection, so that the log is not cleared and begun again.
        const libraryopening::Opened opened = libraryopening::openOrCreate(path);
        members->path = opened.path;
        members->id = opened.id;
        const auto memory = std::make_shared<LibraryMemory>();
        auto writer = std::make_unique<WritingThread>();
        const auto opening = [&](QString* why) { return openForWriting(members->path, *memory, why); };
        if (writer->start(opening, &reason)) {
            ComputerState(members->id).noteFile(QFile::encodeName(members->path));
            members->start(memory, std::move(writer));
            return std::unique_ptr<Library>(new Library(std::move(members)));
        }
    } catch (const LibraryError& failure) {
        reason = failure.message();
    }
    if (error)
        *error = reason;
    return nullptr;
}

Library::Library(std::unique_ptr<Private> members)
    : d(std::move(members))
{
    connect(d->engine.get(), &LibraryEngine::filesChanged, this, &Library::filesChanged);
    connect(d->engine.get(), &LibraryEngine::tagsChanged, this, &Library::tagsChanged);
    connect(d->engine.get(), &LibraryEngine::failed, this, &Library::failed);
}

Library::~Library()
{
    *d->closing = true;
    d->reader.reset();
    d->engine.reset();
}

QString Library::path() const
{
    return d->path;
}

QSharedPointer<ILibraryDataProvider> Library::dataProvider() const
{
    return d->provider;
}

QString Library::id() const
{
    return d->id;
}

QStringList Library::takeUpgradeNotices()
{
    return libraryopening::takeUpgradeNotices(d->path);
}

LibraryResult Library::addRootAndWait(const QByteArray& folder, const std::atomic_bool* cancelled)
{
    const QByteArray plain = plainPath(folder);
    const auto body = [&](LibraryRequest& request) { rootrequests::add(request, ComputerState(d->id), plain); };
    LibraryResult result = d->engine->sendAndWait(ChangeKind::AddRoot, body, cancelled);
    if (result.change.isEmpty())
        return result;
    // Not before the commit: a mount must not be lost to a request that is rolled back.
    ComputerState computer(d->id);
    computer.setMount(result.rootId, plain);
    for (qint64 adopted : qAsConst(result.rootsAdopted))
        computer.removeRoot(adopted);
    return result;
}

LibraryResult Library::importAndWait(qint64 rootId, const QVector<ImportedFile>& files,
                                     const std::atomic_bool* cancelled)
{
    const auto body = [&](LibraryRequest& request) { ImportBatch(request, rootId).import(files); };
    return d->engine->sendAndWait(ChangeKind::Import, body, cancelled);
}

LibraryResult Library::settleAndWait(const std::atomic_bool* cancelled)
{
    return d->engine->sendAndWait(ChangeKind::Settle, version1keywords::settle, cancelled);
}

LibraryResult Library::forgetAndWait(qint64 rootId, const QVector<QByteArray>& paths, const std::atomic_bool* cancelled)
{
    const auto body = [&](LibraryRequest& request) { ImportBatch(request, rootId).forget(paths); };
    return d->engine->sendAndWait(ChangeKind::Forget, body, cancelled);
}

LibraryResult Library::carryOutAndWait(const LibraryCommand& command, Mode mode)
{
    if (mode == Mode::Rehearsal)
        return d->engine->rehearseAndWait(command.body);
    return d->engine->sendAndWait(command.kind, command.body, nullptr);
}

void Library::carryOut(const LibraryCommand& command, QObject* context, ResultCallback callback)
{
    d->engine->send(command.kind, command.body,
                    [guard = QPointer<QObject>(context), callback = std::move(callback)](const LibraryResult& result) {
                        if (guard && callback)
                            callback(result);
                    });
}

template <typename Answer, typename Read>
void Library::query(Read read, QObject* context, std::function<void(const Answer&)> callback)
{
    const auto answer = [guard = QPointer<QObject>(context), callback = std::move(callback)](const Answer& result) {
        if (guard)
            callback(result);
    };
    QString error;
    if (!d->startReader(&error)) {
        QMetaObject::invokeMethod(
            this,
            [answer, error] {
                answer({{}, error});
            },
            Qt::QueuedConnection);
        return;
    }
    d->reader->post([this, read, answer, closing = d->closing](ReadOnlyLibrary& reader) {
        if (*closing)
            return;
        const Answer result = read(reader);
        QMetaObject::invokeMethod(
            this, [answer, result] { answer(result); }, Qt::QueuedConnection);
    });
}

void Library::queryFileIds(const FileQuery& query, QObject* context, FileIdsCallback callback)
{
    this->query([query](ReadOnlyLibrary& reader) { return reader.fileIds(query); }, context, std::move(callback));
}

void Library::queryFiles(const QVector<qint64>& ids, QObject* context, FilesCallback callback)
{
    query([ids](ReadOnlyLibrary& reader) { return reader.files(ids); }, context, std::move(callback));
}

void Library::queryTagShares(const QVector<qint64>& fileIds, QObject* context, TagSharesCallback callback)
{
    query([fileIds](ReadOnlyLibrary& reader) { return reader.tagShares(fileIds); }, context, std::move(callback));
}

void Library::holdNotifications(int longest)
{
    d->engine->holdNotifications(longest);
}

void Library::releaseNotifications()
{
    d->engine->releaseNotifications();
}
