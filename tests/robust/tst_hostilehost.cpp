// SPDX-License-Identifier: MIT
#include "plugin/state/vltagmanagersingleton.h"
#include "plugin/vltagmnagerplugin.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/robust/hostilesession.h"
#include "tests/support/gestures.h"

#include <vleventtrack.h>

#include <QMenu>
#include <QtTest>

#include <thread>

namespace {

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

/// Hosts that lie, that answer whenever and whatever they like, and that take windows away at the worst moments.
class TestHostileHost : public QObject
{
    Q_OBJECT

private slots:
    void crookedAnswers_data()
    {
        QTest::addColumn<HostLie>("lie");
        for (int lie = int(HostLie::None) + 1; lie <= int(HostLie::NamesAtOdds); ++lie)
            QTest::addRow("lie %d", lie) << HostLie(lie);
    }

    void crookedAnswers()
    {
        QFETCH(const HostLie, lie);
        for (const bool isAlwaysToldSo : {true, false}) {
            HostileSession session;
            session.host.setLie(lie);
            session.host.install();
            session.play([&](int step) { session.host.setLie(isAlwaysToldSo || step % 2 != 0 ? lie : HostLie::None); });
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

    void windowGoesInsideItsOwnSignals()
    {
        for (const auto& [name, way] : waysToSignals) {
            HostileSession session;
            session.openCategories();
            WindowUser& user = *session.user;
            user.clickTile(user.tile("Art"));
            const IVLTagManagerWidget* window = user.window();
            const auto close = [&user] { user.closeWindow(); };
            connect(window, &IVLTagManagerWidget::signalSoftWareMin, this, close);
            connect(window, &IVLTagManagerWidget::signalSoftWareMax, this, close);
            connect(window, &IVLTagManagerWidget::signalSoftWareClose, this, close);
            connect(window, &IVLTagManagerWidget::signalCheckoutTagFile, this, close);
            connect(window, &IVLTagManagerWidget::signalCheckoutGroupFile, this, close);
            way(user);
            QVERIFY2(!user.window(), name);
            settle();
            session.host.addTag("afterwards");
        }
    }

    void windowGoesInsideTracking()
    {
        // Each report of what a person does, one after the other, finds the window gone when it returns.
        for (int report = 0, seen = 1; seen > report; ++report) {
            HostileSession session;
            seen = 0;
            const auto tracking = connect(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked, this, [&] {
                if (seen++ == report)
                    session.user->closeWindow();
            });
            session.play();
            disconnect(tracking);
        }
    }

    void strangeResults()
    {
        HostileSession session;
        HostileHost& host = session.host;
        host.setAnswers(MemoryHost::Answers::OnDemand);
        session.play();
        const auto failure = MemoryHost::response(3, "no");
        QVERIFY(host.requests().size() > 3);
        for (int round = 0; round < 2; ++round) {
            for (const MemoryRequest& request : host.requests()) {
                for (const auto& response : {QSharedPointer<example::Response>(), failure, MemoryHost::response()})
                    host.answer(request, response);
            }
            for (const qint64 id : {Q_INT64_C(-1), Q_INT64_C(0), std::numeric_limits<qint64>::max()})
                host.answerForeign(id, failure);
            session.user->closeWindow();
        }
        QVERIFY(session.log.take().join('\n').contains("failed. Message: \"no\""));
    }

    void resultsFromAnotherThread()
    {
        HostileSession session;
        HostileHost& host = session.host;
        host.setAnswers(MemoryHost::Answers::OnDemand);
        session.user = std::make_unique<WindowUser>();
        session.user->clickCreateTag();
        session.user->enterName("fresh");
        QVERIFY(session.user->dialog());
        const MemoryRequest request = host.requests().constLast();
        std::thread([&] {
            host.answer(request, MemoryHost::response(1, "no"));
            host.answer(request, MemoryHost::response());
        }).join();
        QTRY_VERIFY(!session.user->dialog());
        session.user->clickCreateTag();
        session.user->enterName("other");
        std::thread([&] { host.answer(host.requests().constLast(), MemoryHost::response()); }).join();
        session.user->closeWindow();
        settle();
    }

    void twoWindowsAndOneGoes()
    {
        HostileSession session;
        WindowUser other;
        session.play();
        session.user->selectPage(WindowUser::AllTags);
        QCOMPARE(other.chips(), session.user->chips());
        QCOMPARE(other.tiles(), session.user->tiles());
        QCOMPARE(other.counter(), session.user->counter());
        session.user->closeWindow();
        session.host.addTag("afterwards");
        QVERIFY(other.chips().join(',').contains("afterwards"));
    }

    void paintingAsksTheHostNothing()
    {
        HostileSession session;
        session.user = std::make_unique<WindowUser>();
        session.host.removeTags({1, 2, 3, 4, 5});
        int calls = 0;
        for (const int page : {WindowUser::AllTags, WindowUser::Categories, WindowUser::Favorites}) {
            session.user->selectPage(page);
            settle();
            session.host.setInsideCall([&calls](const char*) { ++calls; });
            session.user->window()->resize(900 + page, 600);
            settle();
            session.user->page(page)->grab();
            session.host.setInsideCall({});
        }
        QCOMPARE(calls, 0);
    }

    void rootObjectGoesFirst()
    {
        HostileSession session;
        auto root = std::make_unique<VLTagMnagerPlugin>();
        session.host.install();
        session.user = std::make_unique<WindowUser>();
        root.reset();
        QVERIFY(!VLTagManagerSingleton::instance()->tagManagerProvider());
        session.play();
        QVERIFY(session.user->window());
    }
};

QTEST_MAIN(TestHostileHost)
#include "tst_hostilehost.moc"
