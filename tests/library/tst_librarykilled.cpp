// SPDX-License-Identifier: MIT
#include "tests/library/commandscript.h"
#include "tests/library/libraryfixture.h"

#include <QEventLoop>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

namespace {

/// Starts the program, kills it some milliseconds after its answers are \a atLeast and \a isReady, and counts them:
/// the pipe holds what was said until the end.
int answersUntilKilled(
    const QStringList& arguments, int atLeast, int delay, const std::function<bool()>& isReady = [] { return true; })
{
    QProcess runner;
    runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    runner.start(QStringLiteral(COMMAND_RUNNER), arguments);
    const bool came = QTest::qWaitFor([&] { return runner.bytesAvailable() >= atLeast && isReady(); }, 20000);
    const bool endedItself = runner.waitForFinished(delay);
    runner.kill();
    runner.waitForFinished();
    return came && !endedItself ? runner.readAllStandardOutput().size() : -1;
}

}  // namespace

/// A program killed at any moment leaves a library that holds every answered request and at most the one in flight.
class TstLibraryKilled : public QObject
{
    Q_OBJECT

private slots:
    void killedAtAnyMoment()
    {
        constexpr quint32 Seed = 20240229;
        LibraryFixture uninterrupted;
        QEventLoop answer;
        CommandScript script(uninterrupted.library(), Seed, [&answer] { answer.quit(); });
        QVector<QStringList> contents = {uninterrupted.stored()};
        QRandomGenerator random(Seed);
        for (int round = 0; round < 50; ++round) {
            QTemporaryDir folder;
            const QString path = folder.filePath(QStringLiteral("library.vellum"));
            const int atLeast = random.bounded(60);
            const int answered = answersUntilKilled({path, QString::number(Seed)}, atLeast, random.bounded(5));
            QVERIFY(answered >= atLeast);
            if (answered == 0 && !QFile::exists(path))
                continue;
            QVERIFY(LibraryFixture::openOnce(path));
            QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
            while (contents.size() < answered + 2) {
                script.next();
                answer.exec();
                contents.append(uninterrupted.stored());
            }
            const QStringList found = LibraryFixture::storedIn(path);
            if (found != contents.at(answered + 1))
                QCOMPARE(found, contents.at(answered));
        }
    }

    void killedWhileTheLibraryIsCreated()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 20; ++round) {
            QTemporaryDir folder;
            const QString path = folder.filePath(QStringLiteral("library.vellum"));
            QVERIFY(answersUntilKilled({path, "1"}, 0, random.bounded(15), [&path] { return QFile::exists(path); }) >=
                    0);
            QVERIFY(LibraryFixture::openOnce(path));
            QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
        }
    }
};

QTEST_GUILESS_MAIN(TstLibraryKilled)

#include "tst_librarykilled.moc"
