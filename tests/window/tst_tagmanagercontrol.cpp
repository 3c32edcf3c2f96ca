// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/support/chipdrag.h"
#include "tests/support/installedhost.h"
#include "tests/support/windowuser.h"
#include "window/page/tagpages.h"

#include <ivltagmanagercontrol.h>

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {

/// Takes what is dragged over it or over what lies in it, as a host does that has pictures dropped on tags.
class DropHost : public QWidget
{
public:
    DropHost() { setAcceptDrops(true); }
    QPoint dropped;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->accept(); }
    void dropEvent(QDropEvent* event) override
    {
        dropped = event->pos();
        event->accept();
    }
};

/// A window with two hundred tags "n 001" and so on, three more, and categories; and what it notifies of.
struct Controlled
{
    Controlled()
    {
        using Events = VLTagManagerEvents;
        const auto log = [this](const QString& line) { notified << line; };
        const auto number = [](TagManagerPage page) { return QString::number(int(page)); };
        Events* events = control->events();
        QObject::connect(events, &Events::currentPageChanged, events,
                         [=](TagManagerPage page) { log("page " + number(page)); });
        QObject::connect(events, &Events::searchTextChanged, events,
                         [=](TagManagerPage page, const QString& text) { log("search " + number(page) + ' ' + text); });
        QObject::connect(events, &Events::searchSubmitted, events,
                         [=](TagManagerPage page) { log("enter " + number(page)); });
        QObject::connect(events, &Events::searchResultActivated, events,
                         [=](qint64 id) { log("result " + QString::number(id)); });
        QObject::connect(events, &Events::selectedCategoryChanged, events,
                         [=](qint64 id) { log("category " + QString::number(id)); });
        QObject::connect(events, &Events::nameInputStarted, events, [=] { log("typing"); });
        QObject::connect(events, &Events::nameInputFinished, events, [=] { log("typed"); });
    }

    [[nodiscard]] QStringList take()
    {
        settle();
        return std::exchange(notified, {});
    }
    /// Where a tag's chip is to be seen, else an invalid point.
    [[nodiscard]] QPoint placeOf(qint64 tagId) const
    {
        const QRect window = user.window()->rect();
        for (int y = 0; y < window.height(); y += 8) {
            for (int x = 0; x < window.width(); x += 8) {
                const TagManagerItem item = control->itemAt({x, y});
                if (item.kind == TagManagerItem::Tag && item.id == tagId)
                    return item.rect.center();
            }
        }
        return {-1, -1};
    }

    void doubleClick(qint64 tagId) const
    {
        const QPoint place = placeOf(tagId);
        QWidget* chips = user.window()->childAt(place);
        QTest::mouseDClick(chips, Qt::LeftButton, {}, chips->mapFrom(user.window(), place));
    }

    WindowUser user;
    IVLTagManagerControl* control = qobject_cast<IVLTagManagerControl*>(user.window());
    QStringList notified;
};

InstalledHost& manyTags(InstalledHost& host)
{
    QStringList names;
    for (int n = 1; n <= 200; ++n)
        names << QStringLiteral("n %1").arg(n, 3, 10, QLatin1Char('0'));
    host.addTags(names + QStringList{"Zebra", "zoo", "Ozone"});
    host.addGroups({"Art", "Books"});
    return host;
}

qint64 groupId(const MemoryHost& host, const char* name)
{
    return host.manager()->tagGroupByName(QLatin1String(name))->groupId();
}

}  // namespace

/// What a host does with a window, and hears of it, through the published interface alone.
class TestTagManagerControl : public QObject
{
    Q_OBJECT

private slots:
    void goesToPagesAndSearches()
    {
        InstalledHost host;
        manyTags(host);
        Controlled c;
        QCOMPARE(tagPages().size(), std::size(tagManagerPageNames));
        for (const TagManagerPageName& page : tagManagerPageNames) {
            QVERIFY(c.control->showPage(page.page));
            QCOMPARE(c.control->currentPage(), page.page);
            QCOMPARE(c.user.currentPage(), int(page.page));
            const bool isSearched = page.page != TagManagerPage::Categories;
            QCOMPARE(c.control->focusSearch(), isSearched);
            QCOMPARE(c.control->isSearchFocused(), isSearched);
            QCOMPARE(c.control->setSearchText(QStringLiteral("zo")), isSearched);
            QCOMPARE(c.control->searchText(), isSearched ? QStringLiteral("zo") : QString());
        }
        QVERIFY(!c.control->showPage(static_cast<TagManagerPage>(3)));
        QCOMPARE(c.take(), (QStringList{"page 1", "page 2", "search 0 zo", "search 2 zo"}));
        c.control->showPage(TagManagerPage::AllTags);
        const QVector<qint64> found = c.control->searchResults(10);
        QCOMPARE(found, QVector<qint64>({host.tagId("zoo"), host.tagId("Ozone")}));
        QCOMPARE(c.control->searchResults(1), found.mid(0, 1));

        c.control->focusSearch();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ze\r"));
        QCOMPARE(c.control->searchResults(10), QVector<qint64>({host.tagId("Zebra")}));
        QCOMPARE(c.take(), (QStringList{"page 0", "search 0 z", "search 0 ze", "enter 0"}));
        c.doubleClick(host.tagId("Zebra"));
        c.control->setSearchText({});
        QVERIFY(c.control->searchResults(10).isEmpty());
        QCOMPARE(c.take(), (QStringList{"result 201", "search 0 "}));
    }

    void findsWhatIsShown()
    {
        InstalledHost host;
        manyTags(host);
        Controlled c;
        const qint64 last = host.tagId("zoo");
        QCOMPARE(c.placeOf(last), QPoint(-1, -1));
        QVERIFY(!c.control->revealTag(4711));
        QVERIFY(c.control->revealTag(last));
        QVERIFY(c.placeOf(last).y() > 0);
        const int position = c.control->scrollPosition();
        c.control->setScrollPosition(0);
        QCOMPARE(c.placeOf(last), QPoint(-1, -1));
        c.control->setScrollPosition(position);
        QVERIFY(c.placeOf(last).y() > 0);
        // In the same turn of the event loop in which it comes.
        QVERIFY(c.control->revealTag(host.addTag(QStringLiteral("zz"))));
        QVERIFY(c.placeOf(host.tagId("zz")).y() > 0);
        c.control->setSearchText(QStringLiteral("Zeb"));
        QVERIFY(!c.control->revealTag(last));
        QVERIFY(c.control->revealTag(host.tagId("Zebra")));

        const IVLTagManagerWidget* window = c.user.window();
        QVERIFY(c.control->isMoveArea({600, 40}) && c.control->isMoveArea({2, 2}));
        const QWidget* button = window->findChild<QPushButton*>(QStringLiteral("tag_manager_title_btn"));
        for (const QPoint& elsewhere :
             {button->geometry().center(), QPoint(500, 300), QPoint(-1, 5), QPoint(window->width(), 5)})
            QVERIFY(!c.control->isMoveArea(elsewhere));
        QCOMPARE(int(c.control->itemAt({600, 40}).kind), int(TagManagerItem::Nothing));
    }

    void selectsCategories()
    {
        InstalledHost host;
        manyTags(host);
        QStringList more;
        for (int n = 0; n < 100; ++n)
            more << QStringLiteral("c%1").arg(n);
        host.addGroups(more);
        const qint64 art = groupId(host, "Art");
        const qint64 lastOne = groupId(host, "c99");
        Controlled c;
        QCOMPARE(c.control->selectedCategory(), taggroupid::fixed);
        c.control->showPage(TagManagerPage::Categories);
        QVERIFY(!c.control->selectCategory(4711) && c.control->selectCategory(art));
        QVERIFY(c.control->selectCategory(lastOne) && c.control->selectCategory(lastOne));
        QCOMPARE(c.control->selectedCategory(), lastOne);
        const QRect tile = c.user.tile(QStringLiteral("c99"))->rect();
        const QPoint corner = c.user.tile(QStringLiteral("c99"))->mapTo(c.user.window(), {});
        const TagManagerItem item = c.control->itemAt(corner + QPoint(30, 30));
        QCOMPARE(int(item.kind), int(TagManagerItem::Category));
        QCOMPARE(item.id, lastOne);
        QCOMPARE(item.rect, tile.translated(corner));
        host.removeGroup(lastOne);
        QCOMPARE(c.control->selectedCategory(), taggroupid::fixed);
        QCOMPARE(c.take(), (QStringList{"page 1", QStringLiteral("category %1").arg(art),
                                        QStringLiteral("category %1").arg(lastOne), "category 0"}));
    }

    void tellsWhenANameIsTyped()
    {
        InstalledHost host;
        manyTags(host);
        Controlled c;
        for (const TagManagerPageName& page : tagManagerPageNames) {
            c.control->showPage(page.page);
            settle();
            c.notified.clear();
            if (page.page == TagManagerPage::Categories)
                c.user.clickTile(c.user.addNewTile());
            else
                c.user.list()->slotAddTag();
            QVERIFY(c.control->isNameBeingTyped());
            host.setAnswers(MemoryHost::Answers::Later);
            host.refuseWith(1, QStringLiteral("no"));
            c.user.enterName(QStringLiteral("name"));
            settle();
            const auto* send = c.user.dialog()->findChild<QPushButton*>(QStringLiteral("tag_popup_btn"));
            QVERIFY(!send->isEnabled());
            c.control->allowNameAgain();
            QVERIFY(send->isEnabled());
            c.user.closeDialog();
            QVERIFY(!c.control->isNameBeingTyped());
            QCOMPARE(c.take(), (QStringList{"typing", "typed"}));
        }
    }

    /// A host may delete the window from inside whatever it is notified of.
    void windowMayGoInEveryNotification()
    {
        struct Case
        {
            const char* signal;
            void (*deed)(Controlled&);
            bool onCategories = false;
        };
        const QVector<Case> cases = {
            {SIGNAL(currentPageChanged(TagManagerPage)),
             [](Controlled& c) { c.user.selectPage(WindowUser::Categories); }},
            {SIGNAL(searchTextChanged(TagManagerPage, QString)), [](Controlled& c) { c.user.search("z"); }},
            {SIGNAL(searchSubmitted(TagManagerPage)),
             [](Controlled& c) {
                 c.control->focusSearch();
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
             }},
            {SIGNAL(searchResultActivated(qint64)),
             [](Controlled& c) {
                 c.control->setSearchText("z");
                 settle();
                 c.doubleClick(202);
             }},
            {SIGNAL(selectedCategoryChanged(qint64)), [](Controlled& c) { c.user.clickTile(c.user.tile("Art")); },
             true},
            {SIGNAL(nameInputStarted()), [](Controlled& c) { c.user.clickCreateTag(); }},
            {SIGNAL(nameInputStarted()),
             [](Controlled& c) { WindowUser::choose(c.user.openGroupMenu("Art"), "Rename Category"); }, true},
            {SIGNAL(nameInputFinished()), [](Controlled& c) {
                 c.user.clickCreateTag();
                 settle();
                 c.user.closeDialog();
             }}};
        for (const Case& each : cases) {
            InstalledHost host;
            manyTags(host);
            Controlled c;
            if (each.onCategories)
                c.user.selectPage(WindowUser::Categories);
            m_leaver = &c.user;
            QVERIFY(connect(c.control->events(), each.signal, this, SLOT(closeWindow())));
            each.deed(c);
            settle();
            QVERIFY2(!c.user.window(), each.signal);
        }
    }

    /// A drag that the window does not take reaches the widget around it, wherever the pointer is.
    void foreignDragsReachTheHost()
    {
        InstalledHost host;
        manyTags(host);
        DropHost around;
        WindowUser user;
        QWidget stranger;
        user.window()->setParent(&around);
        around.resize(user.window()->size());
        around.show();
        user.window()->show();
        auto* control = qobject_cast<IVLTagManagerControl*>(user.window());
        int done = 0;
        for (const bool onTile : {false, true}) {
            control->showPage(onTile ? TagManagerPage::Categories : TagManagerPage::AllTags);
            settle();
            QWidget* target = onTile ? static_cast<QWidget*>(user.tile(QStringLiteral("Art")))
                                     : user.window()->childAt(QPoint(90, 230));
            whileDragging(&stranger, [&] {
                QVERIFY(dragOver(target, {}) && dropOn(target, {}));
                const TagManagerItem item = control->itemAt(around.dropped);
                QVERIFY(item.rect.contains(target->mapTo(user.window(), target->rect().center())));
                QCOMPARE(int(item.kind), int(onTile ? TagManagerItem::Category : TagManagerItem::Tag));
                ++done;
            });
        }
        QCOMPARE(done, 2);
    }

public slots:
    void closeWindow() { m_leaver->closeWindow(); }

private:
    WindowUser* m_leaver = nullptr;
};

DRAG_TEST_MAIN(TestTagManagerControl)
#include "tst_tagmanagercontrol.moc"
