// SPDX-License-Identifier: MIT
#include "bench/library/hostside.h"

#include "bench/library/librarycommands.h"
#include "bench/library/librarycontent.h"
#include "host/app/hostwindow.h"
#include "host/app/librarysession.h"
#include "host/library/library.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagpalette.h"
#include "plugin/vltagmnagerplugin.h"

#include <ilibrarydataprovider.h>
#include <iresponseinfo.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QEventLoop>
#include <QFile>

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace {

constexpr QSize windowSize(1100, 700);

QVector<QVector<ImportedFile>> importBatches(const bench::LibraryContent& content)
{
    QVector<QVector<ImportedFile>> batches;
    for (int file = 0; file < content.importedFiles(); ++file) {
        if (file % bench::filesOfBatch == 0)
            batches.append(QVector<ImportedFile>());
        const FileState state{1000, 1600000000000000000, {}};
        batches.last().append({bench::importedPath(file), state, 1, {}, content.keywords(file)});
    }
    return batches;
}

/// Waits in \a loop for the answer to the request that \a send sends.
void waitForAnswer(QEventLoop* loop, ILibraryDataProvider& provider, const std::function<qint64()>& send)
{
    qint64 id = 0;
    int status = 0;
    const auto end = [&](qint64 answered, const QSharedPointer<const IResponseInfo>& response) {
        if (answered != id)
            return;
        status = response->status();
        loop->quit();
    };
    QObject::connect(provider.tagAction().data(), &ITagAction::signalTagResult, loop, end);
    QObject::connect(provider.tagGroupAction().data(), &ITagGroupAction::signalTagGroupResult, loop, end);
    id = send();
    loop->exec();
    if (status != 0)
        throw std::runtime_error("The host refused a command.");
}

}  // namespace

bench::HostSide::HostSide(const QString& file, const QString& pictures, bool hasWindow, Clock clock)
    : m_file(file)
    , m_pictures(pictures)
    , m_hasWindow(hasWindow)
    , m_clock(clock)
{
}

bench::HostSide::~HostSide()
{
    m_window.reset();
    m_plugin.reset();
}

double bench::HostSide::open()
{
    return timeToPaint(m_clock, [this] {
        openLibrary();
        if (m_hasWindow)
            openWindow();
    });
}

void bench::HostSide::openLibrary()
{
    LibraryChoice choice;
    choice.file = QFile::encodeName(m_file);
    choice.folders = {QFile::encodeName(m_pictures)};
    QString error;
    m_session = LibrarySession::open(choice, &error);
    if (!m_session)
        throw std::runtime_error(qPrintable(error));
}

void bench::HostSide::openWindow()
{
    m_plugin = std::make_unique<VLTagMnagerPlugin>();
    m_plugin->setDataProvider(m_session->library().dataProvider());
    m_plugin->setTagColorProvider(TagPalette::instance());
    m_window = std::make_unique<HostWindow>(*m_session, *m_plugin);
    m_window->resize(windowSize);
    m_window->show();
}

double bench::HostSide::carryOut(const MeasuredCommand& command)
{
    const auto provider = m_session->library().dataProvider();
    const double time = elapsed([&] {
        QEventLoop loop;
        waitForAnswer(&loop, *provider,
                      [&] { return command.request(*provider->tagAction(), *provider->tagGroupAction()); });
    });
    settle();
    return time;
}

double bench::HostSide::import(const LibraryContent& content)
{
    const QVector<QVector<ImportedFile>> batches = importBatches(content);
    const qint64 root = m_session->library().addRootAndWait(bench::importedFolder()).rootId;
    return elapsed([&] {
        QEventLoop loop;
        bool succeeded = true;
        std::thread importer([&] {
            for (const QVector<ImportedFile>& batch : batches)
                succeeded = m_session->library().importAndWait(root, batch).succeeded() && succeeded;
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
        importer.join();
        waitUntilEmitted();
        if (!succeeded)
            throw std::runtime_error("The host did not take the files.");
    });
}

double bench::HostSide::importFolder(const LibraryContent& content)
{
    ImportSummary outcome;
    const double time = elapsed([&] {
        QEventLoop loop;
        const auto end = [&](const ImportSummary& summary) {
            outcome = summary;
            loop.quit();
        };
        QObject::connect(m_session.get(), &LibrarySession::importFinished, &loop, end);
        if (m_hasWindow)
            m_window->startImport();
        else
            m_session->startImport();
        loop.exec();
        waitUntilEmitted();
    });
    if (outcome.added != content.importedFiles())
        throw std::runtime_error("The host did not import every picture.");
    return time;
}

int bench::HostSide::tagCount() const
{
    const auto manager = m_session->library().dataProvider()->tagManagerDataProvider();
    return manager->tagGroup(reservedcategory::allTags)->tagCount(1);
}

void bench::HostSide::waitUntilEmitted()
{
    QEventLoop loop;
    const auto provider = m_session->library().dataProvider();
    waitForAnswer(&loop, *provider, [&] { return provider->tagAction()->deleteTags({}); });
}

double bench::HostSide::elapsed(const std::function<void()>& action) const
{
    const double start = now(m_clock);
    action();
    return now(m_clock) - start;
}
