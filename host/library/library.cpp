// SPDX-License-Identifier: MIT
#include "host/library/library.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/libraryfile.h"
#include "host/library/libraryengine.h"
#include "host/library/librarygroupaction.h"
#include "host/library/libraryreader.h"
#include "host/library/librarytagaction.h"
#include "host/library/librarythread.h"
#include "host/library/librarywriter.h"
#include "host/library/memory/librarymanager.h"
#include "host/library/memory/libraryprovider.h"
#include "host/library/memory/libraryview.h"
#include "host/library/requests/filestore.h"

#include <QFileInfo>
#include <QPointer>

#include <atomic>
#include <future>

namespace {

using WritingThread = LibraryThread<LibraryWriter>;
using ReadingThread = LibraryThread<LibraryReader>;

/// For the writing thread; leaves what was read in \a view, which nobody else uses yet.
std::unique_ptr<LibraryWriter> openForWriting(const QString& path, LibraryView& view, QString* error)
{
    try {
        auto writer = std::make_unique<LibraryWriter>(path);
        view.load(writer->known());
        return writer;
    } catch (const LibraryError& failure) {
        *error = failure.message();
        return nullptr;
    }
}

/// One batch as a job of the engine: \a carryOut does it, \a answer gets its outcome.
template <typename CarryOut, typename Answer>
LibraryEngine::Job batchJob(CarryOut carryOut, Answer answer)
{
    return [carryOut, answer](LibraryDatabase& database) -> LibraryEngine::Result {
        FileStore batch(database);
        carryOut(batch);
        return {batch.change(), answer(batch.outcome())};
    };
}

/// Calls \a callback on the GUI thread after everything else, unless a context was given and is gone.
auto answerLater(QObject* context, Library::ImportCallback callback)
{
    return [callback = std::move(callback), hasContext = context != nullptr,
            guard = QPointer<QObject>(context)](const ImportOutcome& outcome) -> std::function<void()> {
        if (!callback)
            return {};
        return [=] {
            if (guard || !hasContext)
                callback(outcome);
        };
    };
}

template <typename CarryOut>
ImportOutcome sendAndWait(LibraryEngine& engine, CarryOut carryOut)
{
    const auto done = std::make_shared<std::promise<ImportOutcome>>();
    engine.send(batchJob(carryOut, [done](const ImportOutcome& outcome) -> std::function<void()> {
        done->set_value(outcome);
        return {};
    }));
    return done->get_future().get();
}

}  // namespace

/// The parts of an open library, those that need others after them.
struct Library::Private
{
    QString path;
    std::unique_ptr<LibraryEngine> engine;
    QSharedPointer<ILibraryDataProvider> provider;
    std::shared_ptr<std::atomic<bool>> closing = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<ReadingThread> reader;  ///< Made by the first query.

    void start(const std::shared_ptr<LibraryView>& view, std::unique_ptr<WritingThread> writer);
    bool startReader(QString* error);
};

void Library::Private::start(const std::shared_ptr<LibraryView>& view, std::unique_ptr<WritingThread> writer)
{
    engine = std::make_unique<LibraryEngine>(view, std::move(writer));
    const auto manager = QSharedPointer<LibraryManager>::create(view);
    engine->setManager(manager);
    provider =
        QSharedPointer<LibraryProvider>::create(QSharedPointer<LibraryTagAction>::create(engine.get()),
                                                QSharedPointer<LibraryGroupAction>::create(engine.get()), manager);
}

bool Library::Private::startReader(QString* error)
{
    if (reader)
        return true;
    auto thread = std::make_unique<ReadingThread>();
    if (!thread->start([path = path](QString* reason) { return LibraryReader::open(path, reason); }, error))
        return false;
    reader = std::move(thread);
    return true;
}

std::unique_ptr<Library> Library::open(const QString& path, QString* error)
{
    QString reason;
    auto members = std::make_unique<Private>();
    members->path = QFileInfo(path).absoluteFilePath();
    try {
        // Kept open until the writing thread has its connection, so that the log is not cleared and begun again.
        const std::unique_ptr<LibraryDatabase> database = libraryfile::openOrCreate(members->path);
        const auto view = std::make_shared<LibraryView>();
        auto writer = std::make_unique<WritingThread>();
        const auto opening = [&](QString* why) { return openForWriting(members->path, *view, why); };
        if (writer->start(opening, &reason)) {
            members->start(view, std::move(writer));
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

void Library::requestImport(const QVector<ImportedFile>& files, QObject* context, ImportCallback callback)
{
    d->engine->send(
        batchJob([files](FileStore& batch) { batch.import(files); }, answerLater(context, std::move(callback))));
}

void Library::requestForget(const QVector<QByteArray>& paths, QObject* context, ImportCallback callback)
{
    d->engine->send(
        batchJob([paths](FileStore& batch) { batch.forget(paths); }, answerLater(context, std::move(callback))));
}

ImportOutcome Library::importAndWait(const QVector<ImportedFile>& files)
{
    return sendAndWait(*d->engine, [files](FileStore& batch) { batch.import(files); });
}

ImportOutcome Library::forgetAndWait(const QVector<QByteArray>& paths)
{
    return sendAndWait(*d->engine, [paths](FileStore& batch) { batch.forget(paths); });
}

template <typename Read, typename Callback>
void Library::query(Read read, QObject* context, Callback callback)
{
    const auto answer = [guard = QPointer<QObject>(context), callback = std::move(callback)](const auto& result,
                                                                                             const QString& error) {
        if (guard)
            callback(result, error);
    };
    QString error;
    if (!d->startReader(&error)) {
        QMetaObject::invokeMethod(
            this, [answer, error] { answer(decltype(read(std::declval<LibraryReader&>()))(), error); },
            Qt::QueuedConnection);
        return;
    }
    d->reader->post([this, read, answer, closing = d->closing](LibraryReader& reader) {
        if (*closing)
            return;
        const auto result = read(reader);
        QMetaObject::invokeMethod(
            this, [answer, result, failure = reader.lastError()] { answer(result, failure); }, Qt::QueuedConnection);
    });
}

void Library::queryFileIds(const FileQuery& query, QObject* context, FileIdsCallback callback)
{
    this->query([query](LibraryReader& reader) { return reader.fileIds(query); }, context, std::move(callback));
}

void Library::queryFiles(const QVector<qint64>& ids, QObject* context, FilesCallback callback)
{
    query([ids](LibraryReader& reader) { return reader.files(ids); }, context, std::move(callback));
}

void Library::holdNews(int longest)
{
    d->engine->holdNews(longest);
}

void Library::releaseNews()
{
    d->engine->releaseNews();
}
