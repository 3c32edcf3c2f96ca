// SPDX-License-Identifier: MIT
#include "bench/library/hostside.h"
#include "bench/library/librarycontent.h"
#include "bench/library/libraryscenario.h"
#include "bench/library/pausemeter.h"
#include "bench/measurements.h"
#include "host/app/files/filepanel.h"
#include "host/app/files/fileview.h"
#include "host/app/hostwindow.h"
#include "host/app/librarysession.h"
#include "host/library/library.h"
#include "host/library/records/reservedcategory.h"

#include <ilibrarydataprovider.h>
#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <ivltagmanagerwidget.h>

#include <QEventLoop>
#include <QScrollBar>
#include <QTimer>

#include <stdexcept>

namespace {

constexpr int scrollInterval = 16;  // milliseconds: one step for each frame of a screen
constexpr int scrollStep = 60;      // pixels
constexpr int scrollSteps = 400;

QSharedPointer<ITagGroupDataProvider> allTags(const bench::HostSide& host)
{
    return host.session().library().dataProvider()->tagManagerDataProvider()->tagGroup(reservedcategory::allTags);
}

/// Another program adds tags to the library, all at once: a picture that has them all.
void addFromOutside(const bench::LibraryTask& task, const bench::LibraryContent& content)
{
    const auto other = Library::open(task.library);
    if (!other)
        throw std::runtime_error("The library could not be opened twice.");
    const QVector<QString> names = content.outsideNames().toVector();
    const qint64 root = other->addRootAndWait(bench::importedFolder()).rootId;
    if (!other->importAndWait(root, {{"outside.jpg", {}, 1, {}, names}}).succeeded())
        throw std::runtime_error("The library could not be changed from outside.");
}

void waitForTags(bench::HostSide* host, int count)
{
    const auto tags = allTags(*host);
    QEventLoop loop;
    QObject::connect(tags.data(), &ITagGroupDataProvider::signalAddTags, &loop, [&] {
        if (host->tagCount() >= count)
            loop.quit();
    });
    if (host->tagCount() < count)
        loop.exec();
    host->waitUntilEmitted();
}

qint64 idOfTag(const bench::HostSide& host, const QString& name)
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> tags;
    allTags(host)->tags(&tags);
    for (auto tag = tags.cbegin(); tag != tags.cend(); ++tag) {
        if (tag.value()->name() == name)
            return tag.key();
    }
    throw std::runtime_error("The imported pictures have no tag.");
}

void scrollThrough(QScrollBar* bar)
{
    QEventLoop loop;
    QTimer timer;
    int steps = 0;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        bar->setValue(bar->value() + scrollStep);
        if (++steps == scrollSteps)
            loop.quit();
    });
    timer.start(scrollInterval);
    loop.exec();
    if (bar->value() == 0)
        throw std::runtime_error("No pictures were shown.");
}

}  // namespace

void bench::measurePauses(const LibraryTask& task)
{
    const LibraryContent content(task.tags);
    HostSide host(task.library, task.pictures, task.hasWindow, task.clock);
    PauseMeter meter(task.clock);
    const auto report = [&](const char* operation) {
        reportLine(QLatin1String(operation), meter.stop(), host.tagCount());
    };
    host.open();
    meter.start();
    host.importFolder(content);
    report("import");

    addFromOutside(task, content);
    meter.start();
    waitForTags(&host, content.tags() + 2 * content.newTags() + 1);
    report("outside");

    const qint64 tag = idOfTag(host, LibraryContent::commonKeyword());
    meter.start();
    emit host.window().tagWindow()->signalCheckoutTagFile({tag});
    scrollThrough(host.window().filePanel()->view()->verticalScrollBar());
    report("thumbnails");
}
