// SPDX-License-Identifier: MIT
#include "plugin/state/tagitem.h"
#include "plugin/vltagmnagerplugin.h"
#include "taglist/initialletter.h"
#include "tests/robust/hostilesession.h"
#include "tests/support/gestures.h"

#include <QMap>
#include <QSet>
#include <QtTest>

namespace {

/// Runs every step and does \a deed from inside the call of that number, from 0.
void play(HostileSession& s, int callNumber, void (*deed)(HostileSession&))
{
    int calls = 0;
    s.host.setInsideCall([&](const char*) {
        if (calls++ == callNumber)
            deed(s);
    });
    s.play();
    s.host.setInsideCall({});
}

/// The first two calls of each operation in each step, one in the middle of them, and the last.
QVector<int> tellingCalls()
{
    HostileSession s;
    QMap<QPair<int, QString>, QVector<int>> calls;
    int count = 0;
    int step = 0;
    s.host.setInsideCall([&](const char* operation) { calls[{step, operation}].append(count++); });
    s.play([&step](int number) { step = number; });
    s.host.setInsideCall({});
    QSet<int> numbers;
    for (const QVector<int>& each : qAsConst(calls))
        numbers << each.first() << each.value(1, each.first()) << each.at(each.size() / 2) << each.last();
    QVector<int> sorted(numbers.cbegin(), numbers.cend());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

/// What the page of all tags has to show: names with file counts, as WindowUser::chips() gives them.
QStringList expectedChips(const MemoryHost& host)
{
    QMap<QString, QMultiMap<QString, QString>> sections;
    for (const qint64 id : host.group(MemoryHost::AllTags)->tagIds()) {
        const TagItem tag = *readTagItem(host.tag(id));
        sections[initialLetter(tag.name)].insert(tag.name, gestures::describeChip(tag));
    }
    QStringList lines;
    for (auto it = sections.cbegin(); it != sections.cend(); ++it)
        lines << it.key() + QStringLiteral(": ") + QStringList(it->values()).join(QStringLiteral(", "));
    return lines;
}

}  // namespace

/// Every operation that the plug-in calls, each time with somebody at work behind its back.
class TestHostileCalls : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_calls = tellingCalls();
        QVERIFY(m_calls.size() > 50);
    }

    void tagsChangeInTheMiddleOfAReading()
    {
        // Each reading of a tag while a window opens finds the others changed, those that were read before as well.
        for (int number = 0, seen = 1; seen > number; ++number) {
            HostileSession s;
            seen = 0;
            s.host.setInsideCall([&](const char* operation) {
                if (qstrcmp(operation, "fileCount") == 0 && seen++ == number) {
                    for (const qint64 id : {1, 2, 3, 4, 5})
                        s.host.setFileCount(id, 77);
                }
            });
            s.user = std::make_unique<WindowUser>();
            s.host.setInsideCall({});
            QCOMPARE(s.user->chips(), expectedChips(s.host));
        }
    }

    void parentGoesWhileTheWindowIsBuilt()
    {
        // In each reading that building a window makes. While widgets are made, only the action objects are asked for.
        for (int number = 0, seen = 1; seen > number; ++number) {
            HostileSession s;
            VLTagMnagerPlugin plugin;
            auto parent = std::make_unique<QWidget>();
            seen = 0;
            s.host.setInsideCall([&](const char* operation) {
                const bool isReading = !QByteArray(operation).endsWith("Action");
                if (isReading && seen++ == number)
                    parent.reset();
            });
            const QWidget* window = plugin.createTagManagerWidget(parent.get());
            s.host.setInsideCall({});
            QCOMPARE(window == nullptr, parent == nullptr);
            settle();
        }
    }

    void deedsInsideCalls_data()
    {
        QTest::addColumn<int>("number");
        for (int i = 0; i < hostileDeeds().size(); ++i)
            QTest::newRow(hostileDeeds().at(i).name) << i;
    }

    void deedsInsideCalls()
    {
        QFETCH(const int, number);
        const HostileDeed& deed = hostileDeeds().at(number);
        // The short form takes other calls for each deed.
        const int stride = qEnvironmentVariableIsSet("VELLUM_LONG_TESTS") ? 1 : 25;
        for (int i = number % stride; i < m_calls.size(); i += stride) {
            HostileSession s;
            play(s, m_calls.at(i), deed.run);
            if (!s.user || !s.user->window() || !deed.keepsPage)
                continue;
            s.user->selectPage(WindowUser::AllTags);
            settle();
            const QStringList shown = s.user->chips();
            QVERIFY2(shown == expectedChips(s.host),
                     qPrintable(QStringLiteral("call %1:\n").arg(m_calls.at(i)) + shown.join('\n') + "\ninstead of\n" +
                                expectedChips(s.host).join('\n')));
        }
    }

private:
    QVector<int> m_calls;
};

QTEST_MAIN(TestHostileCalls)
#include "tst_hostilecalls.moc"
