// SPDX-License-Identifier: MIT
#include "plugin/state/vltagmanagersingleton.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <QApplication>
#include <QFile>
#include <QtTest>

#include <unistd.h>

namespace {

/// How many connections each signal of the host's objects has, which is what a window leaves behind if it leaves
/// anything.
class Connections : public InstalledHost
{
public:
    using InstalledHost::InstalledHost;

    /// To the signals of the data providers.
    int toData() const
    {
        int count = receiversOf(manager());
        for (const auto& group : qAsConst(manager()->groups)) {
            count += receiversOf(group.data());
            for (const qint64 id : group->tagIds())
                count += receiversOf(tag(id).data());
        }
        return count + receiversOf(VLTagManagerSingleton::instance());
    }

    /// To the signals of results: each request leaves one for as long as the action object lives.
    int toResults() const
    {
        return receiversOf(memoryLibrary()->tagRequests.data()) + receiversOf(memoryLibrary()->groupRequests.data());
    }

private:
    /// QObject keeps the count for its own class only.
    struct Counted : QObject
    {
        using QObject::receivers;
    };

    static int receiversOf(const QObject* object)
    {
        int count = 0;
        const QMetaObject* meta = object->metaObject();
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                count += (object->*(&Counted::receivers))(QByteArray("2" + method.methodSignature()).constData());
        }
        return count;
    }
};

/// Which sees reads of memory that was never written, and takes fifty times as long.
bool isUnderValgrind()
{
    return qEnvironmentVariableIsSet("VELLUM_VALGRIND");
}

/// Resident memory of this process in bytes; always 0 under a sanitizer, which keeps what was freed.
qint64 residentMemory()
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#endif
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

}  // namespace

/// Two hours of use in a few seconds: whatever is opened is closed again, and nothing may be left of it.
class TestSoak : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsLeftBehind()
    {
        const MessageCatcher log;
        QStringList names{"山水", "été", "🐱 cat"};
        for (int i = 0; i < 50; ++i)
            names.append(QChar('a' + i % 26) + QString::number(i));
        Connections host(names);
        host.addGroups({"Art", "Books"});
        host.addTagsToGroups({2}, {1, 2, 3});
        const int topLevelsBefore = QApplication::allWidgets().size();
        const int dataBefore = host.toData();

        const int warmUp = isUnderValgrind() ? 1 : 15;
        constexpr int requestsOfAMinute = 7;
        const bool isLong = qEnvironmentVariableIsSet("VELLUM_LONG_TESTS");
        const int minutes = isUnderValgrind() ? 2 : isLong ? 1200 : 120;
        qint64 memoryBefore = 0;
        int resultsBefore = 0;
        for (int minute = 0; minute < minutes; ++minute) {
            if (minute == warmUp) {
                memoryBefore = residentMemory();
                resultsBefore = host.toResults();
            }
            {
                WindowUser user;
                user.useForAMinute(host);
                QVERIFY(!user.window()->grab().isNull());
            }
            host.clearRequests();
            QCOMPARE(host.toData(), dataBefore);
            QCOMPARE(QApplication::allWidgets().size(), topLevelsBefore);
            QCOMPARE(host.group(MemoryHost::AllTags)->tagCount(1), names.size());
        }
        // The described exception: each request that was followed leaves its handler.
        QCOMPARE(host.toResults() - resultsBefore, requestsOfAMinute * (minutes - warmUp));
        // The handlers, the ids that were given out and the allocator's slack; a window with its tags takes far more.
        const qint64 bytesOfAMinute = (residentMemory() - memoryBefore) / (minutes - warmUp);
        QVERIFY2(bytesOfAMinute < 50000 || isUnderValgrind(), qPrintable(QString::number(bytesOfAMinute)));
        QCOMPARE(log.problems(), QStringList());
    }
};

QTEST_MAIN(TestSoak)
#include "tst_soak.moc"
