// SPDX-License-Identifier: MIT
#include "taglist/vltaglistview.h"

#include "taglist/sortfilterproxymodel.h"
#include "taglist/tagdrag.h"
#include "taglist/vltagdelegate.h"
#include "tests/support/installedhost.h"

#include <vleventtrack.h>

#include <QAbstractItemModelTester>
#include <QDataStream>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

namespace {

QStringList names(const VLTagListView& view)
{
    QStringList shown;
    for (int row = 0; row < view.model()->rowCount(); ++row)
        shown.append(view.model()->index(row, 0).data(Qt::UserRole).value<TagItem>().name);
    return shown;
}

QVector<TagItem> itemsOf(const InstalledHost& host, const QVector<qint64>& ids)
{
    QVector<TagItem> items;
    for (const qint64 id : ids)
        items.append(*readTagItem(host.tag(id)));
    return items;
}

int fittedHeight(const VLTagListView& view, int topMargin, int bottomPad)
{
    const QRect last = view.visualRect(view.model()->index(view.model()->rowCount() - 1, 0));
    return last.y() + last.height() + topMargin + bottomPad;
}

bool chipsOverlap(const VLTagListView& view)
{
    for (int row = 1; row < view.model()->rowCount(); ++row) {
        const QRect before = view.visualRect(view.model()->index(row - 1, 0));
        if (before.intersects(view.visualRect(view.model()->index(row, 0))))
            return true;
    }
    return false;
}

/// A section as its owner sets it up, with the tags of these names.
struct Section
{
    explicit Section(const QStringList& tagNames, const QString& letter = QStringLiteral("A"))
        : ids(host.addTags(tagNames))
        , view(itemsOf(host, ids), nullptr)
    {
        view.setCountShown(true);
        view.setMenuEnabled(true);
        view.setBottomPad(15);
        view.setTopMargin(14);
        view.setItemDelegate(new VLTagDelegate(&view));
        view.setLetter(letter, 18, 0);
        view.setGroupProvider(host.group(MemoryHost::AllTags));
        view.resize(400, 100);
        view.show();
    }

    InstalledHost host;
    QVector<qint64> ids;
    VLTagListView view;
};

}  // namespace

class TagListViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registerTagItemMetaType(); }
    void rowsHoldTheWholeRecord();
    void looksAsTheStyleNeedsIt();
    void sectionIsSortedByCodeUnit();
    void searchSortsByCloseness();
    void batchesEndAsSingleChanges();
    void sameTagTwiceIsOneRow();
    void heightFollowsTheChips();
    void emptyViewFitsItsPads();
    void renamedTagsMoveAndDoNotOverlap();
    void tagOfAnotherLetterLeaves();
    void followsItsCategory();
    void senderlessUpdateIsIgnored();
    void removingReportsEmptiness();
    void rightButtonAsksForTheMenu();
    void doubleClickAsksForFiles();
    void arrowsWalkTheChips();
    void viewMayBeDeletedByItsSignals();
    void shortMovesDragNothing();
    void dragCarriesTheTagAlone();
};

void TagListViewTest::rowsHoldTheWholeRecord()
{
    Section section({"apple"});
    section.host.setFileCount(section.ids[0], 7);
    const QModelIndex index = section.view.model()->index(0, 0);
    const QVariant value = index.data(Qt::UserRole);
    QCOMPARE(value.typeName(), "TagItem");
    const auto tag = value.value<TagItem>();
    QCOMPARE(tag.id, section.ids[0]);
    QCOMPARE(tag.name, QStringLiteral("apple"));
    QCOMPARE(tag.fileCount, 7);
    QCOMPARE(tag.color, QColor("#4a5568"));
    QVERIFY(tag.provider);
    QVERIFY(index.flags() & Qt::ItemIsDragEnabled);
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), Qt::UserRole + 1})
        QVERIFY(!index.data(role).isValid());
}

void TagListViewTest::looksAsTheStyleNeedsIt()
{
    const Section section({"apple"});
    QCOMPARE(section.view.objectName(), QStringLiteral("tag_list_view"));
    QCOMPARE(section.view.styleSheet(), QStringLiteral("border:0px;"));
    QVERIFY(section.view.verticalScrollBar()->styleSheet().endsWith("QScrollBar::handle:vertical{ width:0px;} "));
    QVERIFY(section.view.horizontalScrollBar()->styleSheet().endsWith("QScrollBar::handle:horizontal{height:0px;} "));
    const auto* letter = section.view.findChild<QLabel*>(QStringLiteral("tag_list_vew_char"));
    QCOMPARE(letter->text(), QStringLiteral("A"));
    QCOMPARE(letter->pos(), QPoint(18, 0));
    QVERIFY(letter->isVisible());
}

void TagListViewTest::sectionIsSortedByCodeUnit()
{
    const Section section({"apple", "Apple", "a", "aé", "阿", "az", "aa", "A"});
    QCOMPARE(names(section.view), QStringList({"A", "Apple", "a", "aa", "apple", "az", "aé", "阿"}));
}

void TagListViewTest::searchSortsByCloseness()
{
    InstalledHost host;
    VLTagListView view(QVector<TagItem>{}, nullptr);
    view.setSearchText(QStringLiteral("cat"));
    view.addTags(itemsOf(host, host.addTags({"concatenate", "cats", "cat", "Cat", "category", "bobcat"})));
    QCOMPARE(names(view).mid(0, 3), QStringList({"cat", "category", "cats"}));
    QCOMPARE(names(view).size(), 6);
}

void TagListViewTest::batchesEndAsSingleChanges()
{
    QRandomGenerator random(5);
    InstalledHost host;
    QStringList all;
    for (int i = 0; i < 400; ++i)
        all.append("a" + QString::number(random.bounded(100000)));
    const QVector<qint64> ids = host.addTags(all);
    VLTagListView bulk(itemsOf(host, ids.mid(0, 200)), nullptr);
    VLTagListView single(QVector<TagItem>{}, nullptr);
    const QAbstractItemModelTester bulkTester(bulk.model());
    const QAbstractItemModelTester singleTester(single.model());
    for (VLTagListView* view : {&bulk, &single}) {
        view->setLetter(QStringLiteral("A"), 18, 0);
        view->resize(700, 100);
        view->show();
    }
    bulk.addTags(itemsOf(host, ids.mid(200)));
    for (const TagItem& item : itemsOf(host, ids))
        single.addTag(item);
    bulk.removeTags(ids.mid(100, 150));
    for (const qint64 id : ids.mid(100, 150))
        single.slotDelItem(id);
    QCOMPARE(names(bulk), names(single));
    QCOMPARE(bulk.height(), single.height());
    for (int row = 0; row < bulk.model()->rowCount(); ++row)
        QCOMPARE(bulk.visualRect(bulk.model()->index(row, 0)), single.visualRect(single.model()->index(row, 0)));
}

void TagListViewTest::sameTagTwiceIsOneRow()
{
    Section section({"apple"});
    const TagItem again = section.view.tagAt(section.view.model()->index(0, 0));
    section.view.addTags({again, again});
    QCOMPARE(names(section.view), QStringList({"apple"}));
    QSignalSpy changed(section.view.model(), &QAbstractItemModel::dataChanged);
    section.host.setFileCount(section.ids[0], 3);
    QCOMPARE(changed.count(), 1);
}

void TagListViewTest::heightFollowsTheChips()
{
    Section section({"a1", "a2"});
    QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
    const int oneLine = section.view.height();
    QVector<qint64> more;
    for (int i = 0; i < 30; ++i)
        more.append(section.host.addTag("a long name " + QString::number(i)));
    QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
    QVERIFY(section.view.height() > 3 * oneLine);
    section.view.resize(1200, section.view.height());
    QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
    section.host.removeTags(more);
    QTRY_COMPARE(section.view.height(), oneLine);
    QCOMPARE(section.view.minimumHeight(), section.view.maximumHeight());
}

void TagListViewTest::emptyViewFitsItsPads()
{
    Section section({"apple"});
    section.view.removeAllRows();
    QTRY_COMPARE(section.view.height(), 14 + 15);
    QVERIFY(!section.view.indexAt({30, 30}).isValid());
}

void TagListViewTest::renamedTagsMoveAndDoNotOverlap()
{
    Section section({"a1", "a2", "a3", "a4", "a5"});
    section.host.renameTag(section.ids[0], "az is a much longer name than before");
    section.host.renameTag(section.ids[4], "a");
    QCOMPARE(names(section.view), QStringList({"a", "a2", "a3", "a4", "az is a much longer name than before"}));
    QVERIFY(!chipsOverlap(section.view));
    QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
}

void TagListViewTest::tagOfAnotherLetterLeaves()
{
    Section section({"apple", "axe"});
    QSignalSpy noMatch(&section.view, &VLTagListView::signalCharNoMatch);
    section.host.renameTag(section.ids[0], "banana");
    QCOMPARE(noMatch.count(), 1);
    QCOMPARE(noMatch[0][0].value<QVector<qint64>>(), QVector<qint64>{section.ids[0]});
    QCOMPARE(names(section.view), QStringList({"axe"}));
}

void TagListViewTest::followsItsCategory()
{
    Section section({"apple"});
    section.host.addTags(QStringList{"avocado", "banana", "中"});
    QCOMPARE(names(section.view), QStringList({"apple", "avocado"}));
    section.view.slotAddCallBack({-5, 0, 99999});
    section.view.slotRemoveCallBack({-5, 99999});
    QCOMPARE(names(section.view), QStringList({"apple", "avocado"}));
    section.host.removeTags({section.ids[0]});
    QCOMPARE(names(section.view), QStringList({"avocado"}));
}

void TagListViewTest::senderlessUpdateIsIgnored()
{
    Section section({"apple"});
    QSignalSpy changed(section.view.model(), &QAbstractItemModel::dataChanged);
    section.view.slotUpdateCallBack();
    connect(&section.host, &QObject::objectNameChanged, &section.view, &VLTagListView::slotUpdateCallBack);
    section.host.setObjectName(QStringLiteral("no tag provider"));
    QCOMPARE(changed.count(), 0);
}

void TagListViewTest::removingReportsEmptiness()
{
    Section section({"apple", "axe"});
    QSignalSpy empty(&section.view, &VLTagListView::signalEmpty);
    section.view.slotDelItem(section.ids[0]);
    QCOMPARE(empty.count(), 0);
    section.view.slotDelItem(section.ids[1]);
    QCOMPARE(empty.count(), 1);
    section.view.slotDelItem(section.ids[1]);
    QCOMPARE(empty.count(), 2);
}

void TagListViewTest::rightButtonAsksForTheMenu()
{
    Section section({"apple", "axe"});
    QSignalSpy menu(&section.view, &VLTagListView::signPopMenu);
    const QPoint axe = section.view.visualRect(section.view.model()->index(1, 0)).center();
    QTest::mouseClick(section.view.viewport(), Qt::LeftButton, {}, axe);
    QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, {390, 5});
    QCOMPARE(menu.count(), 0);
    QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, axe);
    QCOMPARE(menu.count(), 1);
    QCOMPARE(menu[0], QVariantList({section.ids[1], QStringLiteral("axe")}));
    section.view.setMenuEnabled(false);
    QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, axe);
    QCOMPARE(menu.count(), 1);
}

void TagListViewTest::doubleClickAsksForFiles()
{
    Section section({"apple"});
    QSignalSpy files(&section.view, &VLTagListView::signCheckTagLinkFile);
    QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
    const QPoint apple = section.view.visualRect(section.view.model()->index(0, 0)).center();
    QTest::mouseDClick(section.view.viewport(), Qt::RightButton, {}, apple);
    QTest::mouseDClick(section.view.viewport(), Qt::LeftButton, {}, {390, 5});
    QCOMPARE(files.count(), 0);
    QTest::mouseDClick(section.view.viewport(), Qt::LeftButton, {}, apple);
    QCOMPARE(files.count(), 1);
    QCOMPARE(tracked.count(), 1);
    QCOMPARE(tracked[0][0].toString(), QStringLiteral("SendLabelJoin"));
    QCOMPARE(tracked[0][1].toList(), QVariantList{1});
}

void TagListViewTest::arrowsWalkTheChips()
{
    Section section({"a1", "a2", "a3"});
    section.view.setFocus();
    const auto current = [&section] { return section.view.currentIndex().row(); };
    QTest::keyClick(&section.view, Qt::Key_Home);
    QCOMPARE(current(), 0);
    QTest::keyClick(&section.view, Qt::Key_Right);
    QCOMPARE(current(), 1);
    QTest::keyClick(&section.view, Qt::Key_End);
    QTest::keyClick(&section.view, Qt::Key_Right);
    QCOMPARE(current(), 2);
    QTest::keyClick(&section.view, Qt::Key_Left);
    QCOMPARE(current(), 1);
}

void TagListViewTest::viewMayBeDeletedByItsSignals()
{
    InstalledHost host;
    const QVector<qint64> ids = host.addTags(QStringList{"apple", "axe"});
    for (const bool doubleClick : {false, true}) {
        auto* view = new VLTagListView(itemsOf(host, ids), nullptr);
        const QPointer<VLTagListView> guard(view);
        view->setMenuEnabled(true);
        view->show();
        connect(view, &VLTagListView::signPopMenu, view, [view] { delete view; });
        connect(view, &VLTagListView::signCheckTagLinkFile, view, [view] { delete view; });
        const QPoint apple = view->visualRect(view->model()->index(0, 0)).center();
        if (doubleClick)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, apple);
        else
            QTest::mouseClick(view->viewport(), Qt::RightButton, {}, apple);
        QVERIFY(guard.isNull());
    }
    auto* view = new VLTagListView(itemsOf(host, ids), nullptr);
    view->setLetter(QStringLiteral("A"), 18, 0);
    connect(view, &VLTagListView::signalCharNoMatch, view, [view] { delete view; });
    host.renameTag(ids[0], QStringLiteral("banana"));
}

void TagListViewTest::shortMovesDragNothing()
{
    Section section({"apple"});
    section.view.setChipDragEnabled(true);
    const QPoint apple = section.view.visualRect(section.view.model()->index(0, 0)).center();
    QTest::mousePress(section.view.viewport(), Qt::LeftButton, {}, apple);
    QMouseEvent shortMove(QEvent::MouseMove, apple + QPoint(1, 1), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(section.view.viewport(), &shortMove);
    QVERIFY(!section.view.isBusy());
    QVERIFY(section.view.findChildren<QDrag*>().isEmpty());
    QTest::mouseRelease(section.view.viewport(), Qt::LeftButton, {}, apple);
}

void TagListViewTest::dragCarriesTheTagAlone()
{
    const std::unique_ptr<QMimeData> data(makeTagMimeData(1234567890123));
    QCOMPARE(data->formats(), QStringList({"TagManager_Group_List_View"}));
    const QByteArray payload = data->data(QStringLiteral("TagManager_Group_List_View"));
    QCOMPARE(payload.size(), int(sizeof(qint64)));
    qint64 id = 0;
    QDataStream(payload) >> id;
    QCOMPARE(id, qint64(1234567890123));
}

QTEST_MAIN(TagListViewTest)
#include "tst_vltaglistview.moc"
