// SPDX-License-Identifier: MIT
#include "tests/library/commandscript.h"
#include "tests/library/libraryfixture.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

/// A program killed at any moment leaves a library that holds every answered request and at most the one in flight.
class TstLibraryKilled : public QObject
{
    Q_OBJECT

private slots:
    void killedAtAnyMoment();
    void killedWhileTheLibraryIsCreated();
};

void TstLibraryKilled::killedAtAnyMoment()
{
    QRandomGenerator random(20240229);
    for (int round = 0; round < 50; ++round) {
        QTemporaryDir folder;
        const QString path = folder.filePath("library.vellum");
        const quint32 seed = random.generate();
        QProcess runner;
        runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        runner.start(QStringLiteral(COMMAND_RUNNER), {path, QString::number(seed)});
        // At a random moment after a random number of answers: the pipe holds what was said until the end.
        const qint64 atLeast = random.bounded(60);
        QTRY_VERIFY(runner.bytesAvailable() >= atLeast);
        QVERIFY(!runner.waitForFinished(int(random.bounded(5))));
        runner.kill();
        QVERIFY(runner.waitForFinished());
        QCOMPARE(runner.exitStatus(), QProcess::CrashExit);
        const int answered = runner.readAllStandardOutput().size();

        if (answered == 0 && !QFile::exists(path))
            continue;
        QVERIFY(LibraryFixture::openOnce(path));
        QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
        CommandScript script(seed);
        for (int i = 0; i < answered; ++i)
            script.next();
        const QStringList found = LibraryFixture::storedIn(path);
        if (found != script.contents())
            script.next();
        QCOMPARE(found, script.contents());
    }
}

void TstLibraryKilled::killedWhileTheLibraryIsCreated()
{
    QRandomGenerator random(7);
    QTemporaryDir folder;
    const QString path = folder.filePath("library.vellum");
    for (int round = 0; round < 20; ++round) {
        for (const char* suffix : {"", "-wal", "-shm", "-journal"})
            QFile::remove(path + suffix);
        QProcess runner;
        runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        runner.start(QStringLiteral(COMMAND_RUNNER), {path, "1"});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path), 10000);
        QVERIFY(!runner.waitForFinished(int(random.bounded(15))));
        runner.kill();
        QVERIFY(runner.waitForFinished());
        QVERIFY(LibraryFixture::openOnce(path));
        QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
    }
}

QTEST_GUILESS_MAIN(TstLibraryKilled)

#include "tst_librarykilled.moc"
