// SPDX-License-Identifier: MIT
#include "plugin/vltagmanagersingleton.h"
#include "plugin/vltagmnagerplugin.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/robust/hostilesession.h"
#include "tests/support/gestures.h"

#include <vleventtrack.h>

#include <QMenu>
#include <QtTest>

#include <thread>

namespace {

void playAll(HostileSession& session)
{
    for (const auto& step : HostileSession::steps()) {
        step.run(session);
        settle();
    }
}

using Way = void (*)(WindowUser&);

/// Each makes the window emit a signal to its host.
const QVector<QPair<const char*, Way>> waysToSignals{
    {"minimise", [](WindowUser& user) { user.clickWindowButton(0); }},
    {"maximise", [](WindowUser& user) { user.clickWindowButton(1); }},
    {"close", [](WindowUser& user) { user.clickWindowButton(2); }},
    {"double click", [](WindowUser& user) { gestures::doubleClickChip(user.list(), "bee"); }},
    {"tag menu", [](WindowUser& user) { WindowUser::choose(user.openTagMenu("bee"), "View Related Files"); }},
    {"category menu", [](WindowUser& user) { WindowUser::choose(user.openGroupMenu("Art"), "View Related Files"); }},
};

}  // namespace

Q_DECLARE_METATYPE(HostLie)
Q_DECLARE_METATYPE(Way)

/// Hosts that lie, that answer whenever and whatever they like, and that take windows away at the worst moments.
class TestHostileHost : public QObject
{
    Q_OBJECT

private slots:
    void crookedAnswers_data();
    void crookedAnswers();
    void windowGoesInsideItsOwnSignals_data();
    void windowGoesInsideItsOwnSignals();
    void windowGoesInsideTracking();
    void strangeResults();
    void resultsFromAnotherThread();
    void tagsWhoseProviderIsGone();
    void twoWindowsAndOneGoes();
    void rootObjectGoesFirst();
};

void TestHostileHost::crookedAnswers_data()
{
    QTest::addColumn<HostLie>("lie");
    for (int lie = int(HostLie::None) + 1; lie <= int(HostLie::NamesAtOdds); ++lie)
        QTest::addRow("lie %d", lie) << HostLie(lie);
}

void TestHostileHost::crookedAnswers()
{
    QFETCH(const HostLie, lie);
    for (const bool isAlwaysToldSo : {true, false}) {
        HostileSession session;
        session.host.setLie(lie);
        session.host.install();
        int step = 0;
        for (const auto& each : HostileSession::steps()) {
            session.host.setLie(isAlwaysToldSo || step++ % 2 != 0 ? lie : HostLie::None);
            each.run(session);
            settle();
        }
        QVERIFY(session.user->window());
        if (!isAlwaysToldSo)
            continue;
        // Each tag stands in one place at most, whatever was said of it.
        session.user->selectPage(WindowUser::AllTags);
        QStringList names;
        for (const QString& line : gestures::shownChips(session.user->list()))
            names += line.mid(line.indexOf(QLatin1Char(':')) + 2).split(QStringLiteral(", "));
        QCOMPARE(names.removeDuplicates(), 0);
    }
}

void TestHostileHost::windowGoesInsideItsOwnSignals_data()
{
    QTest::addColumn<Way>("way");
    for (const auto& [name, way] : waysToSignals)
        QTest::newRow(name) << way;
}

void TestHostileHost::windowGoesInsideItsOwnSignals()
{
    QFETCH(const Way, way);
    HostileSession session;
    session.user = std::make_unique<WindowUser>();
    WindowUser& user = *session.user;
    user.selectPage(WindowUser::Categories);
    user.clickTile(user.tile("Art"));
    IVLTagManagerWidget* window = user.window();
    const auto close = [&user] { user.closeWindow(); };
    connect(window, &IVLTagManagerWidget::signalSoftWareMin, this, close);
    connect(window, &IVLTagManagerWidget::signalSoftWareMax, this, close);
    connect(window, &IVLTagManagerWidget::signalSoftWareClose, this, close);
    connect(window, &IVLTagManagerWidget::signalCheckoutTagFile, this, close);
    connect(window, &IVLTagManagerWidget::signalCheckoutGroupFile, this, close);
    way(user);
    QVERIFY(!user.window());
    settle();
    session.host.truth().addTag("afterwards");
}

void TestHostileHost::windowGoesInsideTracking()
{
    // Each report of what a person does, one after the other, finds the window gone when it returns.
    for (int report = 0, seen = 1; seen > report; ++report) {
        HostileSession session;
        seen = 0;
        const auto tracking = connect(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked, this, [&] {
            if (seen++ == report)
                session.user->closeWindow();
        });
        playAll(session);
        disconnect(tracking);
    }
}

void TestHostileHost::strangeResults()
{
    HostileSession session;
    MemoryHost& truth = session.host.truth();
    truth.setAnswers(MemoryHost::Answers::OnDemand);
    playAll(session);
    session.user->selectPage(WindowUser::AllTags);
    const QStringList shown = gestures::shownChips(session.user->list());
    const auto failure = MemoryHost::response(3, "no");
    auto rejecting = MemoryHost::response();
    rejecting->tags.append(nullptr);
    rejecting->files.append(QSharedPointer<QString>::create("file"));
    QVERIFY(truth.requests().size() > 3);
    for (int round = 0; round < 2; ++round) {
        for (const MemoryRequest& request : truth.requests()) {
            for (const auto& response : {QSharedPointer<MemoryResponse>(), failure, rejecting, MemoryHost::response()})
                truth.answer(request, response);
        }
        for (const qint64 id : {Q_INT64_C(-1), Q_INT64_C(0), std::numeric_limits<qint64>::max()})
            truth.answerForeign(id, failure);
        session.user->closeWindow();
    }
    QCOMPARE(shown.isEmpty(), false);
    QVERIFY(session.log.take().join('\n').contains("failed. Message: \"no\""));
}

void TestHostileHost::resultsFromAnotherThread()
{
    HostileSession session;
    MemoryHost& truth = session.host.truth();
    truth.setAnswers(MemoryHost::Answers::OnDemand);
    session.user = std::make_unique<WindowUser>();
    session.user->clickCreateTag();
    session.user->enterName("fresh");
    QVERIFY(session.user->dialog());
    const MemoryRequest request = truth.requests().constLast();
    std::thread([&] {
        truth.answer(request, MemoryHost::response(1, "no"));
        truth.answer(request, MemoryHost::response());
    }).join();
    QTRY_VERIFY(!session.user->dialog());
    session.user->clickCreateTag();
    session.user->enterName("other");
    std::thread([&] { truth.answer(truth.requests().constLast(), MemoryHost::response()); }).join();
    session.user->closeWindow();
    settle();
}

void TestHostileHost::tagsWhoseProviderIsGone()
{
    HostileSession session;
    session.user = std::make_unique<WindowUser>();
    MemoryHost& truth = session.host.truth();
    // The library forgets its tags without a word; the window holds the last pointers to them.
    const QWeakPointer<MemoryTag> bee = truth.tag(3);
    for (const qint64 id : {1, 2, 3, 4, 5})
        truth.tag(id)->dropRecord();
    for (const auto& group : qAsConst(truth.manager()->groups)) {
        const QSignalBlocker silent(group.data());
        group->leave({1, 2, 3, 4, 5});
    }
    playAll(session);
    QVERIFY(session.user->window());
    session.user->closeWindow();
    QVERIFY(bee);
}

void TestHostileHost::twoWindowsAndOneGoes()
{
    HostileSession session;
    WindowUser other;
    playAll(session);
    session.user->selectPage(WindowUser::AllTags);
    QCOMPARE(other.chips(), session.user->chips());
    QCOMPARE(other.tiles(), session.user->tiles());
    QCOMPARE(other.counter(), session.user->counter());
    session.user->closeWindow();
    session.host.truth().addTag("afterwards");
    QVERIFY(other.chips().join(',').contains("afterwards"));
}

void TestHostileHost::rootObjectGoesFirst()
{
    HostileSession session;
    auto root = std::make_unique<VLTagMnagerPlugin>();
    session.host.install();
    session.user = std::make_unique<WindowUser>();
    root.reset();
    QVERIFY(!VLTagManagerSingleton::instance()->tagManagerProvider());
    for (const auto& step : HostileSession::steps()) {
        if (qstrcmp(step.name, "open") != 0)
            step.run(session);
        settle();
    }
    QVERIFY(session.user->window());
}

QTEST_MAIN(TestHostileHost)
#include "tst_hostilehost.moc"
