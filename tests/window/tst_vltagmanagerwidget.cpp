// SPDX-License-Identifier: MIT
#include "pages/vlalltagwidget.h"
#include "pages/vlcommontagwidget.h"
#include "pages/vlgrouptagwidget.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "window/vltagmanagerwidget.h"
#include "window/vltagsearchlineedit.h"

#include <vlskinsetting.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

namespace {

/// The tag manager window as a host shows it.
struct OpenWindow
{
    OpenWindow()
        : window(new VLTagManagerWidget)
        , stack(window->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly))
    {
        window->resize(1100, 700);
        window->show();
    }

    ~OpenWindow() { delete window; }

    QPushButton* pageButton(const char* text) const
    {
        for (QPushButton* button : window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn"))) {
            if (button->text() == QLatin1String(text))
                return button;
        }
        return nullptr;
    }

    /// The minimise, maximise and close buttons.
    QList<QPushButton*> windowButtons() const
    {
        return window->findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly).mid(3);
    }

    QStringList checkedButtons() const
    {
        QStringList texts;
        for (const QPushButton* button : window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn"))) {
            if (button->isChecked())
                texts.append(button->text());
        }
        return texts;
    }

    QPointer<VLTagManagerWidget> window;
    QStackedWidget* stack;
};

QString image(const char* name)
{
    return VLSkinSetting::GetInstance()->GetResourcePath(QLatin1String(name));
}

}  // namespace

class TestTagManagerWidget : public QObject
{
    Q_OBJECT

private slots:
    void opensOnAllTags();
    void headsOfThePages_data();
    void headsOfThePages();
    void pageButtonsSwitchAndLog_data();
    void pageButtonsSwitchAndLog();
    void windowButtonsOnlyReport();
    void maximizeButtonFollowsTheHost();
    void forwardsTheWishToSeeFiles();
    void mayBeDeletedByItsOwnSignals();
};

void TestTagManagerWidget::opensOnAllTags()
{
    const InstalledHost host({QStringLiteral("apple")});
    const OpenWindow open;
    QCOMPARE(open.stack->count(), 3);
    QVERIFY(qobject_cast<VLAllTagWidget*>(open.stack->widget(0)));
    QVERIFY(qobject_cast<VLGroupTagWidget*>(open.stack->widget(1)));
    QVERIFY(qobject_cast<VLCommonTagWidget*>(open.stack->widget(2)));
    QCOMPARE(open.stack->currentIndex(), 0);
    QCOMPARE(open.checkedButtons(), QStringList(QStringLiteral("All Tags")));
    QCOMPARE(open.pageButton("All Tags")->geometry(), QRect(20, 30, 96, 28));
    QCOMPARE(open.pageButton("Tag Categories")->geometry(), QRect(136, 30, 96, 28));
    QCOMPARE(open.pageButton("Favorite Tags")->geometry(), QRect(252, 30, 96, 28));
    QVERIFY(open.pageButton("All Tags")->isFlat());
    QVERIFY(!open.pageButton("Favorite Tags")->isFlat());
    QCOMPARE(open.windowButtons().last()->geometry(), QRect(1100 - 17 - 14, 18, 14, 14));
    QCOMPARE(open.windowButtons().first()->geometry().left(), 1100 - 17 - 3 * 14 - 2 * 18);
    QCOMPARE(open.stack->geometry(), QRect(0, 18 + 14 + 51, 1100, 700 - 83));
    QCOMPARE(gestures::shownChips(open.window), QStringList(QStringLiteral("A: apple")));
}

void TestTagManagerWidget::headsOfThePages_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("searchable");
    QTest::newRow("all") << 0 << QStringLiteral("All Tags")
                         << QStringLiteral("Tag-based file classification and filing help categorize and organize "
                                           "files more efficiently.")
                         << true;
    QTest::newRow("categories") << 1 << QStringLiteral("Tag Categories")
                                << QStringLiteral("You can categorize the tags with different meanings to manage and "
                                                  "conveniently use them.")
                                << false;
    QTest::newRow("favorites") << 2 << QStringLiteral("Favorite Tags")
                               << QStringLiteral("You can save frequently used tags as Favorite Tags for easier "
                                                 "targeting and tagging.")
                               << true;
}

void TestTagManagerWidget::headsOfThePages()
{
    QFETCH(int, page);
    VLTagBaseWidget base(page, nullptr);
    base.resize(800, 400);
    base.show();
    const auto* title = base.findChild<QLabel*>(QStringLiteral("tag_page_title"));
    const auto* description = base.findChild<QLabel*>(QStringLiteral("tag_page_des"));
    const auto* field = base.findChild<VLTagSearchLineEdit*>();
    QTEST(title->text(), "title");
    QTEST(description->text(), "description");
    QTEST(field->isVisible(), "searchable");
    QCOMPARE(field->placeholderText(), QStringLiteral("Search Tags"));
    QCOMPARE(title->geometry().left(), 21 + 1 + 16 + 8);
    QCOMPARE(description->geometry().topLeft(), QPoint(46, title->geometry().bottom() + 1 + 7));
    QCOMPARE(field->parentWidget()->geometry(), QRect(20, description->geometry().bottom() + 1 + 18, 240, 22));
}

void TestTagManagerWidget::pageButtonsSwitchAndLog_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("line");
    QTest::newRow("all") << QByteArray("All Tags") << 0
                         << QStringLiteral("VLTagManagerWidget::slotSelectedAllLabel select all tag");
    QTest::newRow("categories") << QByteArray("Tag Categories") << 1
                                << QStringLiteral("VLTagManagerWidget::slotSelectedGroup select group");
    QTest::newRow("favorites") << QByteArray("Favorite Tags") << 2
                               << QStringLiteral("VLTagManagerWidget::slotSelectedCommon select common");
}

void TestTagManagerWidget::pageButtonsSwitchAndLog()
{
    QFETCH(QByteArray, button);
    QFETCH(int, page);
    QFETCH(QString, line);
    const InstalledHost host;
    const OpenWindow open;
    MessageCatcher log;
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(open.pageButton(button), Qt::LeftButton);
        QCOMPARE(open.checkedButtons(), QStringList(QString::fromLatin1(button)));
        QCOMPARE(open.stack->currentIndex(), page);
    }
    QCOMPARE(log.take(), QStringList({line, line}));
}

void TestTagManagerWidget::windowButtonsOnlyReport()
{
    const InstalledHost host;
    const OpenWindow open;
    QStringList reports;
    connect(open.window, &IVLTagManagerWidget::signalSoftWareMin, this, [&] { reports << QStringLiteral("min"); });
    connect(open.window, &IVLTagManagerWidget::signalSoftWareMax, this, [&] { reports << QStringLiteral("max"); });
    connect(open.window, &IVLTagManagerWidget::signalSoftWareClose, this, [&] { reports << QStringLiteral("close"); });
    for (QPushButton* button : open.windowButtons())
        QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(reports, QStringList({QStringLiteral("min"), QStringLiteral("max"), QStringLiteral("close")}));
    QVERIFY(open.window->isVisible() && !open.window->isMaximized() && !open.window->isMinimized());
}

void TestTagManagerWidget::maximizeButtonFollowsTheHost()
{
    const InstalledHost host;
    const OpenWindow open;
    const QPushButton* button = open.windowButtons().at(1);
    const QString maximize = QStringLiteral("QPushButton{border:0px;") + image("title_window_maxsize_normal.svg") +
                             QStringLiteral("}QPushButton:hover{") + image("title_window_maxsize_hover.svg") +
                             QStringLiteral("}");
    QCOMPARE(button->styleSheet(), maximize);
    open.window->updateMaximizeButton(true);
    QVERIFY(button->styleSheet().contains(image("title_window_restore_normal.svg")));
    QVERIFY(button->styleSheet().contains(image("title_window_restore_hover.svg")));
    open.window->updateMaximizeButton(false);
    QCOMPARE(button->styleSheet(), maximize);
    QVERIFY(open.windowButtons().first()->styleSheet().startsWith(
        QStringLiteral("QPushButton{border:0px;padding-top:5px;padding-bottom:5px;") +
        image("title_window_minisize_normal.svg")));
}

void TestTagManagerWidget::forwardsTheWishToSeeFiles()
{
    const InstalledHost host;
    const OpenWindow open;
    QSignalSpy tags(open.window, &IVLTagManagerWidget::signalCheckoutTagFile);
    for (int i = 0; i < 3; ++i)
        emit qobject_cast<VLTagBaseWidget*>(open.stack->widget(i))->signalCheckoutFile(QVector<qint64>(i, i));
    QCOMPARE(tags.count(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(tags.at(i).first().value<QVector<qint64>>(), QVector<qint64>(i, i));
}

void TestTagManagerWidget::mayBeDeletedByItsOwnSignals()
{
    const InstalledHost host({QStringLiteral("apple")});
    for (int button = 0; button < 3; ++button) {
        OpenWindow open;
        for (const auto signal : {&IVLTagManagerWidget::signalSoftWareMin, &IVLTagManagerWidget::signalSoftWareMax,
                                  &IVLTagManagerWidget::signalSoftWareClose})
            connect(open.window, signal, this, [&open] { delete open.window; });
        QTest::mouseClick(open.windowButtons().at(button), Qt::LeftButton);
        QVERIFY(!open.window);
    }
    OpenWindow open;
    connect(open.window, &IVLTagManagerWidget::signalCheckoutTagFile, this, [&open] { delete open.window; });
    gestures::doubleClickChip(open.window, QStringLiteral("apple"));
    QVERIFY(!open.window);
}

QTEST_MAIN(TestTagManagerWidget)
#include "tst_vltagmanagerwidget.moc"
