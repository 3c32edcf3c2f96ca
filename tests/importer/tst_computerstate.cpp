// SPDX-License-Identifier: MIT
#include "host/library/computer/computerstate.h"
#include "host/library/computer/datafolder.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QtTest>

class TestComputerState : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_home = std::make_unique<TestFolder>();
        qputenv("XDG_DATA_HOME", m_home->path());
    }

    void knowsWhatItWasTold()
    {
        const QString one = QStringLiteral("one");
        const QString two = QStringLiteral("two");
        ComputerState(one).noteFile("/a\xff.vellum");
        ComputerState(one).setMount(1, "/pictures\xff");
        ComputerState(one).setMount(1, "/elsewhere");
        ComputerState(two).setMount(1, "/pictures");
        const QVector<KnownLibrary> known = ComputerState::knownLibraries();
        QCOMPARE(known.size(), 1);
        QCOMPARE(known.first().file, QByteArray("/a\xff.vellum"));
        QCOMPARE(known.first().id, one);
        QCOMPARE(known.first().mounts, (QHash<qint64, QByteArray>{{1, "/elsewhere"}}));
        ComputerState(one).removeRoot(1);
        QVERIFY(ComputerState(one).mounts().isEmpty());
        QCOMPARE(ComputerState(two).mounts().size(), 1);
    }

    void keepsUnreadableFilesByFolder()
    {
        ComputerState state(QStringLiteral("one"));
        state.setUnreadable(1, {}, {{"", "", "closed"}, {"a/b", "1", "bad"}, {"a b", "1", "bad"}, {"c", "1", "bad"}});
        QCOMPARE(state.unreadable(1).size(), 4);
        QCOMPARE(state.unreadable(1, "a").keys(), QList<QByteArray>{"a/b"});
        state.setUnreadable(1, "a", {{"a/d", "2", "worse"}});
        QCOMPARE(ComputerState(QStringLiteral("one")).unreadable(1).size(), 4);
        QCOMPARE(state.unreadable(1, "a/d").value("a/d").reason, QStringLiteral("worse"));
        QVERIFY(state.unreadable(2).isEmpty());
    }

    void losesNothingButItsOwnNotes()
    {
        const QString id = QStringLiteral("one");
        ComputerState(id).setMount(1, "/a");
        for (const char* const ending : {"", "-wal", "-shm"})
            writeFile(personalDataFolder() + "/computer-1.sqlite" + ending, QByteArray(5000, 'x'));
        ComputerState state(id);
        QVERIFY(state.mounts().isEmpty());
        state.setMount(1, "/b");
        QCOMPARE(ComputerState(id).mounts().value(1), QByteArray("/b"));
        QVERIFY(QFile::exists(QFile::decodeName(personalDataFolder()) + "/computer-1.sqlite.damaged"));

        // Nowhere to keep it: for this process only.
        qputenv("XDG_DATA_HOME", "/dev/null");
        ComputerState(id).setMount(1, "/c");
        QCOMPARE(ComputerState(id).mounts().value(1), QByteArray("/c"));
    }

private:
    std::unique_ptr<TestFolder> m_home;
};

QTEST_GUILESS_MAIN(TestComputerState)
#include "tst_computerstate.moc"
