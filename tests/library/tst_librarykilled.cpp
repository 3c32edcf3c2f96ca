// SPDX-License-Identifier: MIT
#include "tests/library/commandscript.h"
#include "tests/library/libraryfixture.h"

#include <QEventLoop>
#include <QProcess>
#include <QTest>

/// A program killed at any of its writes leaves a library that holds every answered request and at most the one in
/// flight.
class TstLibraryKilled : public QObject
{
    Q_OBJECT

private slots:
    void killedAtAnyWrite()
    {
        constexpr quint32 seed = 20240229;
        LibraryFixture uninterrupted;
        QEventLoop answer;
        CommandScript script(uninterrupted.library(), seed, [&answer] { answer.quit(); });
        QVector<QStringList> contents = {uninterrupted.stored()};
        bool isKilled = true;
        // Every write of opening and of the first requests, then every seventh.
        for (int write = 0; isKilled; write += write < 50 ? 1 : 7) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(QStringLiteral("library.vellum"));
            QProcess runner;
            runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            runner.start(QStringLiteral(COMMAND_RUNNER), {path, QString::number(seed), QString::number(write)});
            QVERIFY(runner.waitForFinished(60000));
            isKilled = runner.exitStatus() == QProcess::CrashExit;
            const int answered = runner.readAllStandardOutput().size();
            QVERIFY(isKilled || answered == 60);
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
};

QTEST_GUILESS_MAIN(TstLibraryKilled)

#include "tst_librarykilled.moc"
