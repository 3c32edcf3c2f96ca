// SPDX-License-Identifier: MIT
#include "taglist/vltaggrouplistview.h"

#include "taglist/vltaglistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"

#include <QLayout>
#include <QScrollArea>
#include <QSignalSpy>
#include <QtTest>

using gestures::shownChips;

namespace {

/// A section list in a page's scroll area, which is what gives it its width.
struct Page
{
    explicit Page(InstalledHost& host, qint64 groupId = MemoryHost::AllTags)
        : list(new VLTagGroupListView(nullptr, false))
    {
        area.setWidget(list);
        area.setWidgetResizable(true);
        area.resize(600, 400);
        area.show();
        list->setDataProvider(host.group(groupId));
    }

    QScrollArea area;
    VLTagGroupListView* list;
};

QVector<VLTagListView*> sections(const VLTagGroupListView* list)
{
    QVector<VLTagListView*> views;
    for (int i = 0; i < list->layout()->count(); ++i)
        views.append(qobject_cast<VLTagListView*>(list->layout()->itemAt(i)->widget()));
    return views;
}

/// Every section stands right below the one before, at its own height.
bool standInAColumn(const VLTagGroupListView* list)
{
    int bottom = 0;
    for (const VLTagListView* view : sections(list)) {
        if (view->y() != bottom || view->height() != view->minimumHeight())
            return false;
        bottom += view->height();
    }
    return list->height() >= bottom;
}

}  // namespace

class TagGroupListViewTest : public QObject
{
    Q_OBJECT

private slots:
    void removingTheLastTagsReportsEmptiness()
    {
        InstalledHost host({"apple", "bee", "bear"});
        const Page page(host);
        QSignalSpy empty(page.list, &VLTagGroupListView::signalEmpty);
        host.removeTags({host.tagId("apple")});
        QCOMPARE(empty.count(), 0);
        host.removeTags({host.tagId("bee"), host.tagId("bear")});
        QCOMPARE(empty.count(), 1);
        QVERIFY(shownChips(page.list).isEmpty());
        host.addTag(QStringLiteral("back"));
        QCOMPARE(shownChips(page.list), QStringList({"B: back"}));
    }

    void newSectionHasItsPlaceAtOnce()
    {
        InstalledHost host({"apple", "cat"});
        const Page page(host);
        QTRY_VERIFY(standInAColumn(page.list));
        host.addTag(QStringLiteral("bee"));
        QVERIFY(standInAColumn(page.list));
    }

    void sectionsOwnSlotsAgreeWithTheHostsNews()
    {
        InstalledHost host({"apple", "bee"});
        const Page page(host);
        const auto all = host.group(MemoryHost::AllTags);
        QSignalSpy emptied(sections(page.list).at(1), &VLTagListView::signalEmpty);
        sections(page.list).at(1)->slotDelItem(host.tagId("bee"));
        QCOMPARE(emptied.size(), 1);
        QCOMPARE(shownChips(page.list), QStringList({"A: apple"}));
        emit all->signalAddTags({host.tagId("bee")});
        QCOMPARE(shownChips(page.list), QStringList({"A: apple", "B: bee"}));

        InstalledHost other({"ant"});
        sections(page.list).at(0)->addTag(TagItem{99, QStringLiteral("ant"), {}, 0, other.tag(other.tagId("ant"))});
        QCOMPARE(shownChips(page.list), QStringList({"A: ant, apple", "B: bee"}));
        emit all->signalRemoveTags({99});
        QCOMPARE(shownChips(page.list), QStringList({"A: apple", "B: bee"}));
    }

    void signalsKeepTheirPlaces()
    {
        const QMetaObject& meta = VLTagGroupListView::staticMetaObject;
        int place = meta.methodOffset();
        for (const char* signal : {"signalsCheckoutFile(QVector<qint64>)", "signalClosePopup()", "signalEmpty()",
                                   "signalAddTag(int)", "signalRemoveTag(int)"})
            QCOMPARE(meta.indexOfSignal(signal), place++);
    }
};

QTEST_MAIN(TagGroupListViewTest)
#include "tst_vltaggrouplistview.moc"
