// SPDX-License-Identifier: MIT
#include "plugin/vltagmanagersingleton.h"
#include "taglist/initialletter.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/robust/hostilesession.h"
#include "tests/support/gestures.h"

#include <QMap>
#include <QtTest>

namespace {

using Deed = void (*)(HostileSession&);

struct NamedDeed
{
    const char* name;
    Deed run;
    bool keepsPage = true;  ///< The page of all tags still follows the library afterwards.
};

/// What is done from inside a call. Signals may lie about what the library holds.
const QVector<NamedDeed> deeds{
    {"addTags",
     [](HostileSession& s) {
         s.host.truth().addTags(QStringList{"awl", "bulb 2", "new letter"});
     }},
    {"removeTags",
     [](HostileSession& s) {
         s.host.truth().removeTags({1, 2, 3, 5, 6});
     }},
    {"updateTags",
     [](HostileSession& s) {
         for (const qint64 id : {1, 2, 3, 5})
             s.host.truth().setFileCount(id, 77);
     }},
    {"renameTags",
     [](HostileSession& s) {
         for (const qint64 id : {1, 2, 3, 5})
             s.host.truth().renameTag(id, "odd " + QString::number(id));
     }},
    {"addGroups",
     [](HostileSession& s) {
         s.host.truth().addGroups({"Aa", "Zz"});
     }},
    {"removeGroups",
     [](HostileSession& s) {
         s.host.truth().removeGroups({2, 3, 4});
     }},
    {"renameGroups",
     [](HostileSession& s) {
         s.host.truth().renameGroup(2, "Yy");
         s.host.truth().renameGroup(3, "Ab");
     }},
    {"moveTags",
     [](HostileSession& s) {
         s.host.truth().removeTagsFromGroups({2}, {1, 2, 3});
         s.host.truth().addTagsToGroups({3}, {1, 2, 3});
     }},
    {"strangeIds",
     [](HostileSession& s) {
         for (const qint64 id : {-1, 0, 1, 2}) {
             const auto group = s.host.truth().group(id);
             if (!group)
                 continue;
             for (const auto& ids : {QVector<qint64>{}, {4711, -3, 0}, {5, 5, 5}, {1, 2, 1}}) {
                 emit group->signalAddTags(ids);
                 emit group->signalUpdated();
             }
             emit group->signalRemoveTags({});
             emit group->signalRemoveTags({4711, -3, -3});
         }
         for (const auto& ids : {QVector<qint64>{}, {4711, -2, 0, 1, -1}, {2, 2}})
             emit s.host.truth().manager()->signalAddTagGroups(ids);
         emit s.host.truth().manager()->signalRemoveTagGroups({4711, -2, -1, 0, 1});
     }},
    {"clearProvider", [](HostileSession&) { VLTagManagerSingleton::instance()->clear(); }, false},
    {"replaceProvider",
     [](HostileSession& s) {
         s.host.install();
         if (s.user && s.user->list())
             s.user->list()->setDataProvider({});
     },
     false},
    {"selectOther",
     [](HostileSession& s) {
         if (s.user)
             s.user->clickTile(s.user->tile(QString()));
     }},
    {"reload",
     [](HostileSession& s) {
         if (s.user && s.user->list())
             s.user->list()->reload(s.user->searchText(s.user->currentPage()));
     }},
    {"deleteWindow",
     [](HostileSession& s) {
         if (s.user)
             s.user->closeWindow();
     },
     false},
};

/// Runs every step and does \a deed from inside the call of that number, from 0; -1 for never.
void play(HostileSession& s, int callNumber, Deed deed)
{
    int calls = 0;
    s.host.setInsideCall([&](const char*) {
        if (calls++ == callNumber)
            deed(s);
    });
    for (const auto& step : HostileSession::steps()) {
        step.run(s);
        settle();
    }
    s.host.setInsideCall({});
}

/// The first and the last call of each operation in each step.
QVector<int> tellingCalls()
{
    HostileSession s;
    QMap<QString, QPair<int, int>> calls;
    int count = 0;
    QString stepName;
    s.host.setInsideCall([&](const char* operation) {
        auto& numbers = calls[stepName + QLatin1Char(':') + QLatin1String(operation)];
        if (numbers.second == 0)
            numbers.first = count;
        numbers.second = count++;
    });
    for (const auto& step : HostileSession::steps()) {
        stepName = QLatin1String(step.name);
        step.run(s);
        settle();
    }
    s.host.setInsideCall({});
    QVector<int> numbers;
    for (const auto& pair : qAsConst(calls))
        numbers << pair.first << pair.second;
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

/// What the page of all tags has to show.
QStringList expectedChips(const MemoryHost& host)
{
    QMap<QString, QStringList> sections;
    for (const qint64 id : host.group(MemoryHost::AllTags)->tagIds()) {
        const QString name = host.tag(id)->name();
        sections[initialLetter(name)] << name;
    }
    QStringList lines;
    for (auto it = sections.begin(); it != sections.end(); ++it) {
        std::sort(it->begin(), it->end());
        lines << it.key() + QStringLiteral(": ") + it->join(QStringLiteral(", "));
    }
    return lines;
}

}  // namespace

/// Every operation that the plug-in calls, each time with somebody at work behind its back.
class TestHostileCalls : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void deedsInsideCalls_data();
    void deedsInsideCalls();

private:
    QVector<int> m_calls;
};

void TestHostileCalls::initTestCase()
{
    m_calls = tellingCalls();
    QVERIFY(m_calls.size() > 50);
}

void TestHostileCalls::deedsInsideCalls_data()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < deeds.size(); ++i)
        QTest::newRow(deeds.at(i).name) << i;
}

void TestHostileCalls::deedsInsideCalls()
{
    QFETCH(const int, number);
    const NamedDeed& deed = deeds.at(number);
    // The short form takes other calls for each deed.
    const int stride = qEnvironmentVariableIsSet("VELLUM_LONG_TESTS") ? 1 : 15;
    for (int i = number % stride; i < m_calls.size(); i += stride) {
        HostileSession s;
        play(s, m_calls.at(i), deed.run);
        if (!s.user || !s.user->window() || !deed.keepsPage)
            continue;
        s.user->selectPage(WindowUser::AllTags);
        settle();
        const QStringList shown = gestures::shownChips(s.user->page(WindowUser::AllTags));
        QVERIFY2(shown == expectedChips(s.host.truth()),
                 qPrintable(QStringLiteral("call %1:\n").arg(m_calls.at(i)) + shown.join('\n') + "\ninstead of\n" +
                            expectedChips(s.host.truth()).join('\n')));
    }
}

QTEST_MAIN(TestHostileCalls)
#include "tst_hostilecalls.moc"
