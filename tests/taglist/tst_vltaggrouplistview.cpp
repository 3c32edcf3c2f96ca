// SPDX-License-Identifier: MIT
#include "taglist/vltaggrouplistview.h"

#include "taglist/vltaglistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"

#include <QLayout>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QSignalSpy>
#include <QtTest>

#include <numeric>

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

    void providerCanBeReplaced()
    {
        InstalledHost host({"apple", "bee"});
        const qint64 group = host.addGroup(QStringLiteral("group"));
        host.addTagsToGroups({group}, {host.tagId("bee")});
        const Page page(host);
        page.list->setDataProvider(host.group(group));
        host.addTag(QStringLiteral("not in the group"));
        QCOMPARE(shownChips(page.list), QStringList({"B: bee"}));
        page.list->setDataProvider({});
        host.addTagsToGroups({group}, {host.tagId("apple")});
        page.list->slotAddTagsCallBack({1});
        page.list->slotTagUpdateNoMatch({1});
        QVERIFY(shownChips(page.list).isEmpty());
    }

    void anotherOrderOfFillingGivesTheSamePixels()
    {
        QRandomGenerator random(3);
        QStringList tagNames;
        const QString initials = QString::fromUtf8("abcdefghijklmnopqrstuvwxyzAÉñß1@山中文あ한");
        for (int i = 0; i < 1000; ++i)
            tagNames.append(initials.at(random.bounded(initials.size())) + QString::number(random.bounded(1000000)));
        InstalledHost bulkHost(tagNames);
        const Page bulk(bulkHost);
        QVector<qint64> leaving(300);
        std::iota(leaving.begin(), leaving.end(), 100);
        InstalledHost singleHost;
        const Page single(singleHost);
        for (const QString& name : qAsConst(tagNames))
            singleHost.addTag(name);
        bulkHost.removeTags(leaving);
        for (const qint64 id : qAsConst(leaving))
            singleHost.removeTags({id});
        QTRY_VERIFY(standInAColumn(bulk.list) && standInAColumn(single.list));
        QTRY_COMPARE(single.list->size(), bulk.list->size());
        QCOMPARE(single.list->grab().toImage(), bulk.list->grab().toImage());
    }

    void newSectionHasItsPlaceAtOnce()
    {
        InstalledHost host({"apple", "cat"});
        const Page page(host);
        QTRY_VERIFY(standInAColumn(page.list));
        host.addTag(QStringLiteral("bee"));
        QVERIFY(standInAColumn(page.list));
    }

    void sectionMayEmptyItselfInsideItsOwnEvent()
    {
        InstalledHost host({"apple", "bee"});
        const Page page(host);
        connect(page.list, &VLTagGroupListView::signalsCheckoutFile, this,
                [&host](const QVector<qint64>& ids) { host.removeTags(ids); });
        QVERIFY(gestures::doubleClickChip(page.list, QStringLiteral("apple")));
        QCOMPARE(shownChips(page.list), QStringList({"B: bee"}));
        connect(page.list, &VLTagGroupListView::signalsCheckoutFile, this, [&page] { page.list->setDataProvider({}); });
        QVERIFY(gestures::doubleClickChip(page.list, QStringLiteral("bee")));
        QVERIFY(shownChips(page.list).isEmpty());
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
