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
        ComputerState().noteLibrary("/a\xff.vellum", QStringLiteral("one"));
        ComputerState().setMount(QStringLiteral("one"), 1, "/pictures\xff");
        ComputerState().setMount(QStringLiteral("one"), 1, "/elsewhere");
        ComputerState().setMount(QStringLiteral("two"), 1, "/pictures");
        ComputerState state;
        QCOMPARE(state.libraries().size(), 1);
        QCOMPARE(state.libraries().first().file, QByteArray("/a\xff.vellum"));
        const QHash<qint64, QByteArray> mounts = {{1, "/elsewhere"}};
        QCOMPARE(state.mounts(QStringLiteral("one")), mounts);
        state.removeRoot(QStringLiteral("one"), 1);
        QVERIFY(state.mounts(QStringLiteral("one")).isEmpty());
        QCOMPARE(state.mounts(QStringLiteral("two")).size(), 1);
    }

    void keepsUnreadableFilesByFolder()
    {
        ComputerState state;
        const QString id = QStringLiteral("one");
        state.setUnreadable(id, 1, {},
                            {{"", "", "closed"}, {"a/b", "1", "bad"}, {"a b", "1", "bad"}, {"c", "1", "bad"}});
        QCOMPARE(state.unreadable(id, 1, {}).size(), 4);
        QCOMPARE(state.unreadable(id, 1, "a").keys(), QList<QByteArray>{"a/b"});
        state.setUnreadable(id, 1, "a", {{"a/d", "2", "worse"}});
        QCOMPARE(ComputerState().unreadable(id, 1, {}).size(), 4);
        QCOMPARE(state.unreadable(id, 1, "a/d").value("a/d").reason, QStringLiteral("worse"));
        QVERIFY(state.unreadable(id, 2, {}).isEmpty());
    }

    void losesNothingButItsOwnNotes()
    {
        ComputerState().setMount(QStringLiteral("one"), 1, "/a");
        for (const char* const ending : {"", "-wal", "-shm"})
            writeFile(personalDataFolder() + "/computer-1.sqlite" + ending, QByteArray(5000, 'x'));
        ComputerState state;
        QVERIFY(state.mounts(QStringLiteral("one")).isEmpty());
        state.setMount(QStringLiteral("one"), 1, "/b");
        QCOMPARE(ComputerState().mounts(QStringLiteral("one")).value(1), QByteArray("/b"));

        // Nowhere to keep it: for this process only.
        qputenv("XDG_DATA_HOME", "/dev/null");
        ComputerState().setMount(QStringLiteral("one"), 1, "/c");
        QCOMPARE(ComputerState().mounts(QStringLiteral("one")).value(1), QByteArray("/c"));
    }

private:
    std::unique_ptr<TestFolder> m_home;
};

QTEST_GUILESS_MAIN(TestComputerState)
#include "tst_computerstate.moc"
