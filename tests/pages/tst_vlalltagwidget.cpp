// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "pages/vlalltagwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/screenfault.h"
#include "tests/support/windowuser.h"
#include "widgets/vlscrollbar.h"

#include <vleventtrack.h>

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

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
    void startsAtTheTopHoweverTallItIs()
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

    void createTagOpensTheDialogAndEndsTheSearch()
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

    /// What a change does not paint anew has to be right as it stands.
    void screenShowsWhatTheWidgetsAre()
    {
        OpenPage open(manyNames(400));
        QVERIFY(QTest::qWaitForWindowExposed(open.page));
        const std::vector<std::pair<const char*, std::function<void()>>> changes{
            {"opened", [] {}},
            {"scrolled", [&] { open.area()->verticalScrollBar()->setValue(300); }},
            {"added in view",
             [&] {
                 open.host.addTags(lines({"d", "é", "f new and long", "A"}));
             }},
            {"renamed into view", [&] { open.host.renameTag(26, QStringLiteral("e renamed")); }},
            {"renamed out of view", [&] { open.host.renameTag(5, QStringLiteral("~")); }},
            {"longer in place",
             [&] { open.host.renameTag(31, QStringLiteral("e tag of a much longer name than before")); }},
            {"recoloured", [&] { open.host.setTagColor(31, 3); }},
            {"section removed", [&] { open.host.removeTags({401}); }},
            {"many added", [&] { open.host.addTags(manyNames(600).mid(400)); }},
            {"narrower", [&] { open.page->resize(700, 600); }},
            {"higher", [&] { open.page->resize(700, 640); }},
            {"wider", [&] { open.page->resize(860, 500); }},
            {"font changed",
             [] {
                 QFont font = QApplication::font();
                 font.setLetterSpacing(QFont::AbsoluteSpacing, 2);
                 QApplication::setFont(font);
             }},
            {"font changed back", [] { QApplication::setFont(QFont(QApplication::font().family())); }},
            {"searched", [&] { open.search(QStringLiteral("1")); }},
            {"searched on", [&] { open.search(QStringLiteral("12")); }},
            {"result renamed", [&] { open.host.renameTag(13, QStringLiteral("12 is first")); }},
            {"found nothing", [&] { open.search(QStringLiteral("nothing")); }},
            {"cleared", [&] { open.field()->clear(); }},
            {"emptied", [&] { open.host.removeTags(open.host.group(MemoryHost::AllTags)->tagIds()); }},
        };
        for (const auto& [name, change] : changes) {
            change();
            QTRY_VERIFY2(screenFault(open.page).isEmpty(), qPrintable(name + (": " + screenFault(open.page))));
        }
    }

    /// As when a host opens a panel beside the page. The chip that was clicked stays where it is, else the topmost one.
    void chipStaysInPlaceWhileTheWidthChanges_data()
    {
        QTest::addColumn<bool>("isClicked");
        QTest::newRow("clicked") << true;
        QTest::newRow("topmost") << false;
    }
    void chipStaysInPlaceWhileTheWidthChanges()
    {
        QFETCH(const bool, isClicked);
        QStringList names;
        for (int i = 0; i < 400; ++i)
            names.append(QString(QChar('a' + i / 200)) + QString::number(i % 200).rightJustified(3, QLatin1Char('0')));
        OpenPage open(names);
        QWidget window;
        QWidget panel(&window);
        panel.setFixedWidth(430);
        auto* row = new QHBoxLayout(&window);
        row->addWidget(&panel);
        row->addWidget(open.page);
        panel.hide();
        window.resize(1100, 700);
        window.show();
        settle();
        QScrollBar* scroll = open.area()->verticalScrollBar();
        scroll->setValue(430);
        if (isClicked)
            gestures::doubleClickChip(open.page, QStringLiteral("b111"));
        const int value = scroll->value();
        const auto topOf = [&open](const gestures::ChipPlace& chip) {
            const QPoint corner = chip.view->visualRect(chip.index).topLeft();
            return chip.view->viewport()->mapTo(open.area(), corner).y();
        };
        gestures::ChipPlace kept = gestures::findChip(open.page, QStringLiteral("b111"));
        for (int i = 0; i < 400 && !isClicked; ++i) {
            kept = gestures::findChip(open.page, names.at(i));
            if (topOf(kept) > -22)
                break;
        }
        const int top = topOf(kept);
        QVERIFY(isClicked || top < 16);
        const auto isKept = [&] { return screenFault(&window).isEmpty() && topOf(kept) == top; };
        for (int i = 0; i < 2; ++i) {
            panel.show();
            QTRY_VERIFY2(isKept(), qPrintable(screenFault(&window)));
            window.resize(900, 700);
            QTRY_VERIFY2(isKept(), qPrintable(screenFault(&window)));
            window.resize(1100, 700);
            panel.hide();
            QTRY_VERIFY2(isKept(), qPrintable(screenFault(&window)));
            QTRY_COMPARE(scroll->value(), value);
        }
        open.page->setParent(nullptr);
    }

    void pageMovesForKeysAlone()
    {
        OpenPage open(manyNames(400));
        settle();
        QScrollBar* scroll = open.area()->verticalScrollBar();
        scroll->setValue(300);
        const auto [section, index] = gestures::findChip(open.page, QStringLiteral("h tag 7"));
        QTest::mouseClick(section->viewport(), Qt::LeftButton, {}, section->visualRect(index).center());
        scroll->setValue(0);
        open.host.removeTags({open.host.tagId("h tag 7")});
        settle();
        QCOMPARE(scroll->value(), 0);
        QTest::keyClick(section, Qt::Key_End);
        QVERIFY(scroll->value() > 0);
    }

    void hoverFollowsWhatMovesUnderThePointer()
    {
        OpenPage open(manyNames(400));
        QVERIFY(QTest::qWaitForWindowExposed(open.page));
        settle();
        const gestures::ChipPlace first = gestures::findChip(open.page, QStringLiteral("a tag 0"));
        QCursor::setPos(first.view->viewport()->mapToGlobal(first.view->visualRect(first.index).center()));
        const auto changes = {std::function<void()>([] {}),
                              std::function<void()>([&] { open.area()->verticalScrollBar()->setValue(38); }),
                              std::function<void()>([&] { open.host.addTag(QStringLiteral("!")); }),
                              std::function<void()>([&] { open.page->resize(500, 600); }),
                              std::function<void()>([&] { open.area()->verticalScrollBar()->setValue(400); })};
        for (const auto& change : changes) {
            change();
            QTRY_VERIFY2(screenFault(open.page).isEmpty(), qPrintable(screenFault(open.page)));
        }
        QCursor::setPos(0, 0);
    }

    void overlayBarShowsOnlyWhatCanScroll()
    {
        OpenPage open(lines({"apple"}));
        send(open.area(), QEvent::Enter);
        QVERIFY(open.bar()->isHidden());
        open.host.addTags(manyNames(200));
        QTRY_VERIFY(open.bar()->maximum() > 0);
        send(open.area(), QEvent::Enter);
        QVERIFY(open.bar()->isVisible());
        open.page->resize(700, 500);
        const QSize size = open.area()->size();
        const QRect restingPlace(size.width() - 9, 1, 5, size.height() - 2);
        QCOMPARE(open.bar()->geometry(), restingPlace);
        send(open.area(), QEvent::Leave);
        QVERIFY2(open.bar()->isHidden(), "at once");
        QCOMPARE(open.bar()->geometry(), restingPlace);
        send(open.area(), QEvent::Enter);
        QVERIFY(open.bar()->isVisible());
    }

    void rebuildKeepsContentAndPosition()
    {
        OpenPage open(manyNames(200));
        QScrollBar* scroll = open.area()->verticalScrollBar();
        QTRY_VERIFY(scroll->maximum() > 300);
        const QStringList shown = gestures::shownChips(open.page);
        const int range = scroll->maximum();
        open.page->slotSetOriScrollValue(250);
        QCOMPARE(scroll->value(), 250);
        open.page->rebuild();
        QTRY_COMPARE(scroll->maximum(), range);
        QCOMPARE(scroll->value(), 250);
        QTRY_COMPARE(gestures::shownChips(open.page), shown);
    }

    void emptyPageSaysWhatToDo()
    {
        InstalledHost host;
        WindowUser user;
        const auto content = [](const WindowUser& seen) {
            settle();
            auto* area = seen.page(WindowUser::AllTags)->findChild<QScrollArea*>(QStringLiteral("all_tag_scroll"));
            return area->viewport()->grab().toImage();
        };
        const auto isBlank = [](const QImage& image) {
            QImage blank(image.size(), image.format());
            blank.fill(image.pixelColor(0, 0));
            return image == blank;
        };
        const QImage noTags = content(user);
        QVERIFY(!isBlank(noTags));
        user.search(QStringLiteral("a"));
        const QImage nothingFound = content(user);
        QVERIFY(!isBlank(nothingFound) && nothingFound != noTags);
        user.search({});
        const qint64 tag = host.addTag(QStringLiteral("apple"));
        QVERIFY2(content(user) == content(WindowUser()), "nothing of the hint is left behind the chip");
        host.removeTags({tag});
        QCOMPARE(content(user), noTags);
    }
};

QTEST_MAIN(TestAllTagWidget)
#include "tst_vlalltagwidget.moc"
