// SPDX-License-Identifier: MIT
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <QPixmap>
#include <QTest>

/// The life of windows from the first to the last, with something of everything in between: short enough for valgrind,
/// which sees reads of memory that was never written.
class TestLifecycle : public QObject
{
    Q_OBJECT

private slots:
    void windowsComeAndGo()
    {
        const MessageCatcher log;
        QStringList names{QStringLiteral("Zebra"), QStringLiteral("山水"), QStringLiteral("été"),
                          QStringLiteral("🐱 cat")};
        for (int i = 0; i < 60; ++i)
            names.append(QStringLiteral("tag %1").arg(i));
        InstalledHost host(names);
        host.addTagsToGroups({host.addGroup(QStringLiteral("Animals"))}, {1});
        host.setFavorite(1, true);
        for (int round = 0; round < 2; ++round) {
            WindowUser first;
            const WindowUser second;
            first.useForAMinute(host);
            QVERIFY(!first.window()->grab().isNull());
            first.closeWindow();
            settle();
            QCOMPARE(second.counter(), QStringLiteral("(64)"));
        }
        QCOMPARE(host.requests().size(), 14);
        QCOMPARE(log.problems(), QStringList());
    }
};

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
