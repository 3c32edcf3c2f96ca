// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "pages/vlalltagwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "widgets/vlscrollbar.h"

#include <vleventtrack.h>

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

QStringList lines(const std::initializer_list<const char*>& texts)
{
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

void send(QObject* receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

/// The page of all tags, open on a host.
struct OpenPage
{
    explicit OpenPage(const QStringList& tagNames)
        : host(tagNames)
        , page(new VLAllTagWidget(0, nullptr))
    {
        page->initialise(VLTagManagerSingleton::instance()->allTagsProvider());
        page->resize(900, 600);
        page->show();
    }

    ~OpenPage() { delete page; }

    QString counter() const { return page->findChild<QLabel*>(QStringLiteral("all_tag_count_label"))->text(); }
    QLineEdit* field() const { return page->findChild<QLineEdit*>(); }
    QPushButton* createButton() const { return page->findChild<QPushButton*>(QStringLiteral("create_tag_btn")); }
    QScrollArea* area() const { return page->findChild<QScrollArea*>(QStringLiteral("all_tag_scroll")); }
    VLScrollBar* bar() const { return page->findChild<VLScrollBar*>(); }

    void search(const QString& text) const
    {
        field()->clear();
        QTest::keyClicks(field(), text);
    }

    InstalledHost host;
    QPointer<VLAllTagWidget> page;
};

QStringList manyNames(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("%1 tag %2").arg(QChar('a' + i % 26)).arg(i));
    return names;
}

}  // namespace

class TestAllTagWidget : public QObject
{
    Q_OBJECT

private slots:
    void startsAtTheTopHoweverTallItIs();
    void showsTagsByLetterAndCountsThem();
    void counterFollowsTheHost();
    void counterNeverGoesBelowZero();
    void searchShowsNothingButResults();
    void lettersComeBackAsTheDataIsThen();
    void resultsFollowTheHost();
    void doubleClickAsksForFiles();
    void createTagOpensTheDialogAndEndsTheSearch();
    void overlayBarShowsOnlyWhatCanScroll();
    void rebuildKeepsContentAndPosition();
    void emptyPageIsSafe();
    void pageMayBeDeletedByItsListeners();
};

void TestAllTagWidget::startsAtTheTopHoweverTallItIs()
{
    QStringList names;
    // One chip for each line: 16,000 lines of 38 pixels pass the 524,287 pixels that layouts clamp at.
    for (int i = 0; i < 16000; ++i)
        names.append(QStringLiteral("long name ") + QString::number(i).rightJustified(90, QLatin1Char('0')));
    const OpenPage open(names);
    QTRY_VERIFY(open.area()->widget()->height() > 16000 * 38);
    const auto* list = open.page->findChild<VLTagGroupListView*>();
    QTRY_COMPARE(list->geometry().top(), 16);
    QCOMPARE(list->geometry().bottom(), open.area()->widget()->rect().bottom());
}

void TestAllTagWidget::showsTagsByLetterAndCountsThem()
{
    const OpenPage open({QStringLiteral("zebra"), QStringLiteral("apple"), QString::fromUtf8("中国"),
                         QStringLiteral("Ant"), QStringLiteral("42")});
    QCOMPARE(gestures::shownChips(open.page), lines({"4: 42", "A: Ant, apple", "Z: zebra, 中国"}));
    QCOMPARE(open.counter(), QStringLiteral("(5)"));
}

void TestAllTagWidget::counterFollowsTheHost()
{
    OpenPage open({QStringLiteral("a")});
    const QVector<qint64> added = open.host.addTags(lines({"b", "c", "d"}));
    QCOMPARE(open.counter(), QStringLiteral("(4)"));
    open.host.removeTags({added.at(0), added.at(2)});
    QCOMPARE(open.counter(), QStringLiteral("(2)"));
    open.search(QStringLiteral("a"));
    open.host.addTag(QStringLiteral("e"));
    QTRY_COMPARE(open.counter(), QStringLiteral("(3)"));
}

void TestAllTagWidget::counterNeverGoesBelowZero()
{
    OpenPage open(lines({"a", "b"}));
    emit open.host.group(MemoryHost::AllTags)->signalRemoveTags({71, 72, 73});
    QCOMPARE(open.counter(), QStringLiteral("(2)"));
    emit open.host.group(MemoryHost::AllTags)->signalRemoveTags({71, 72});
    QCOMPARE(open.counter(), QStringLiteral("(0)"));
}

void TestAllTagWidget::searchShowsNothingButResults()
{
    const OpenPage open(lines({"apple", "Grape", "banana", "ape", "zoo"}));
    open.search(QStringLiteral("ap"));
    QTRY_COMPARE(gestures::shownChips(open.page).size(), 1);
    const QString shown = gestures::shownChips(open.page).first();
    QVERIFY2(shown.startsWith(QStringLiteral(": ape, apple")), qPrintable(shown));
    QVERIFY(shown.contains(QStringLiteral("Grape")));
    QVERIFY(!shown.contains(QStringLiteral("zoo")) && !shown.contains(QStringLiteral("banana")));
    open.search(QStringLiteral("no such tag"));
    QTRY_VERIFY(!gestures::findChip(open.page, QStringLiteral("ape")).view);
    QVERIFY(!gestures::findChip(open.page, QStringLiteral("zoo")).view);
    QCOMPARE(open.field()->text(), QStringLiteral("no such tag"));
}

void TestAllTagWidget::lettersComeBackAsTheDataIsThen()
{
    OpenPage open(lines({"apple", "bee"}));
    open.search(QStringLiteral("app"));
    QTRY_VERIFY(!gestures::findChip(open.page, QStringLiteral("bee")).view);
    open.host.addTag(QStringLiteral("cow"));
    open.host.renameTag(open.host.tagId(QStringLiteral("bee")), QStringLiteral("wasp"));
    open.host.removeTags({open.host.tagId(QStringLiteral("apple"))});
    open.field()->clear();
    QTRY_COMPARE(gestures::shownChips(open.page), lines({"C: cow", "W: wasp"}));
}

void TestAllTagWidget::resultsFollowTheHost()
{
    OpenPage open(lines({"apple", "bee"}));
    open.search(QStringLiteral("app"));
    QTRY_COMPARE(gestures::shownChips(open.page), lines({": apple"}));
    open.host.addTags(lines({"app", "cow"}));
    QTRY_COMPARE(gestures::shownChips(open.page), lines({": app, apple"}));
    open.host.removeTags({open.host.tagId(QStringLiteral("bee"))});
    QCOMPARE(open.field()->text(), QStringLiteral("app"));
    open.host.removeTags({open.host.tagId(QStringLiteral("apple"))});
    QTRY_COMPARE(gestures::shownChips(open.page), lines({": app"}));
}

void TestAllTagWidget::doubleClickAsksForFiles()
{
    OpenPage open(lines({"apple", "bee"}));
    QSignalSpy files(open.page, &VLAllTagWidget::signalCheckoutFile);
    QVERIFY(gestures::doubleClickChip(open.page, QStringLiteral("bee")));
    QCOMPARE(files.count(), 1);
    QCOMPARE(files.takeFirst().first().value<QVector<qint64>>(),
             QVector<qint64>{open.host.tagId(QStringLiteral("bee"))});
}

void TestAllTagWidget::createTagOpensTheDialogAndEndsTheSearch()
{
    const OpenPage open(lines({"apple", "bee"}));
    QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
    open.search(QStringLiteral("bee"));
    QTRY_VERIFY(!gestures::findChip(open.page, QStringLiteral("apple")).view);
    QTest::mouseClick(open.createButton(), Qt::LeftButton);
    const QPointer<VLTagModifyWidget> dialog = open.page->findChild<VLTagModifyWidget*>();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(open.field()->text(), QString());
    QTRY_COMPARE(gestures::shownChips(open.page), lines({"A: apple", "B: bee"}));
    QCOMPARE(tracked.first().at(0).toString(), QStringLiteral("ClickTagManagerAddBtn"));
    QCOMPARE(tracked.first().at(1).toList(), QVariantList{0});
    dialog->close();
    QTRY_VERIFY(!dialog);
}

void TestAllTagWidget::overlayBarShowsOnlyWhatCanScroll()
{
    OpenPage open(lines({"apple"}));
    send(open.area(), QEvent::Enter);
    QVERIFY(open.bar()->isHidden());
    open.host.addTags(manyNames(200));
    QTRY_VERIFY(open.bar()->maximum() > 0);
    send(open.area(), QEvent::Enter);
    QVERIFY(open.bar()->isVisible());
    const QSize size = open.area()->size();
    QCOMPARE(open.bar()->geometry(), QRect(size.width() - 9, 1, 5, size.height() - 2));
    send(open.area(), QEvent::Leave);
    QTRY_VERIFY(open.bar()->isHidden());
    open.page->resize(700, 500);
    QCOMPARE(open.bar()->geometry().left(), open.area()->width() - 9);
}

void TestAllTagWidget::rebuildKeepsContentAndPosition()
{
    OpenPage open(manyNames(200));
    QScrollBar* scroll = open.area()->verticalScrollBar();
    QTRY_VERIFY(scroll->maximum() > 300);
    const QStringList shown = gestures::shownChips(open.page);
    open.page->slotSetOriScrollValue(250);
    QCOMPARE(scroll->value(), 250);
    open.search(QStringLiteral("tag 1"));
    open.field()->clear();
    QTRY_COMPARE(gestures::shownChips(open.page), shown);
    QTRY_VERIFY(scroll->maximum() > 300);
    open.page->slotSetOriScrollValue(250);
    const int range = scroll->maximum();
    open.page->rebuild();
    QTRY_COMPARE(scroll->maximum(), range);
    QCOMPARE(scroll->value(), 250);
    QTRY_COMPARE(gestures::shownChips(open.page), shown);
}

void TestAllTagWidget::emptyPageIsSafe()
{
    VLAllTagWidget bare(0, nullptr);
    bare.show();
    emit bare.signSearchChanged(QStringLiteral("text"));
    bare.slotSetOriScrollValue(10);
    bare.rebuild();
    QCoreApplication::sendPostedEvents(&bare);

    VLAllTagWidget withoutLibrary(0, nullptr);
    withoutLibrary.initialise({});
    withoutLibrary.show();
    withoutLibrary.findChild<QLineEdit*>()->setText(QStringLiteral("text"));
    QCoreApplication::sendPostedEvents(&withoutLibrary);
    withoutLibrary.rebuild();
    QCOMPARE(gestures::shownChips(&withoutLibrary), QStringList());
    QCOMPARE(withoutLibrary.findChild<QLabel*>(QStringLiteral("all_tag_count_label"))->text(), QString());
}

void TestAllTagWidget::pageMayBeDeletedByItsListeners()
{
    OpenPage open(lines({"apple"}));
    connect(open.page, &VLAllTagWidget::signalCheckoutFile, this, [&open] { delete open.page; });
    gestures::doubleClickChip(open.page, QStringLiteral("apple"));
    QVERIFY(!open.page);

    OpenPage second(lines({"apple"}));
    QObject listener;
    connect(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked, &listener, [&second] { delete second.page; });
    QTest::mouseClick(second.createButton(), Qt::LeftButton);
    QVERIFY(!second.page);
}

QTEST_MAIN(TestAllTagWidget)
#include "tst_vlalltagwidget.moc"
