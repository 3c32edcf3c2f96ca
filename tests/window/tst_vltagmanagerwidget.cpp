// SPDX-License-Identifier: MIT
#include "pages/vlalltagwidget.h"
#include "pages/vlcommontagwidget.h"
#include "pages/vlgrouptagwidget.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "window/vltagmanagerwidget.h"

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
    void pageButtonsSwitchAndLog_data();
    void pageButtonsSwitchAndLog();
    void windowButtonsOnlyReport();
    void maximizeButtonFollowsTheHost();
    void forwardsTheWishToSeeFiles();
    void followsCategories();
    void windowWithoutLibraryStaysEmpty();
    void mayBeDeletedByItsOwnSignals();
    void twoWindowsShowTheSame();
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
    QSignalSpy minimise(open.window, &IVLTagManagerWidget::signalSoftWareMin);
    QSignalSpy maximise(open.window, &IVLTagManagerWidget::signalSoftWareMax);
    QSignalSpy close(open.window, &IVLTagManagerWidget::signalSoftWareClose);
    for (QPushButton* button : open.windowButtons())
        QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(minimise.count(), 1);
    QCOMPARE(maximise.count(), 1);
    QCOMPARE(close.count(), 1);
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
    QSignalSpy groups(open.window, &IVLTagManagerWidget::signalCheckoutGroupFile);
    for (int i = 0; i < 3; ++i)
        emit qobject_cast<VLTagBaseWidget*>(open.stack->widget(i))->signalCheckoutFile(QVector<qint64>(i, i));
    emit open.window->findChild<VLGroupTagWidget*>()->signalCheckGroupFiles({9});
    QCOMPARE(tags.count(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(tags.at(i).first().value<QVector<qint64>>(), QVector<qint64>(i, i));
    QCOMPARE(groups.count(), 1);
    QCOMPARE(groups.first().first().value<QVector<qint64>>(), QVector<qint64>{9});
}

void TestTagManagerWidget::followsCategories()
{
    InstalledHost host;
    const qint64 first = host.addGroup(QStringLiteral("First"));
    const OpenWindow open;
    QSignalSpy added(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalAddGroupAction);
    QSignalSpy removed(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalRemoveGroupAction);
    const qint64 second = host.addGroup(QStringLiteral("Second"));
    host.removeGroups({first, 4711});
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.first().first().toLongLong(), second);
    QVERIFY(removed.count() >= 1);
    QCOMPARE(removed.first().first().toLongLong(), first);
}

void TestTagManagerWidget::windowWithoutLibraryStaysEmpty()
{
    const OpenWindow open;
    QCOMPARE(gestures::shownChips(open.window), QStringList());
    for (const char* button : {"Favorite Tags", "Tag Categories", "All Tags"})
        QTest::mouseClick(open.pageButton(button), Qt::LeftButton);
    const InstalledHost host({QStringLiteral("apple")});
    QCOMPARE(gestures::shownChips(open.window), QStringList());
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

void TestTagManagerWidget::twoWindowsShowTheSame()
{
    InstalledHost host({QStringLiteral("apple")});
    const OpenWindow first;
    auto second = std::make_unique<OpenWindow>();
    host.addTag(QStringLiteral("ant"));
    const QStringList expected(QStringLiteral("A: ant, apple"));
    QCOMPARE(gestures::shownChips(first.window), expected);
    QCOMPARE(gestures::shownChips(second->window), expected);
    second.reset();
    host.removeTags({host.tagId(QStringLiteral("ant"))});
    QCOMPARE(gestures::shownChips(first.window), QStringList(QStringLiteral("A: apple")));
    const auto* counter = first.stack->widget(0)->findChild<QLabel*>(QStringLiteral("all_tag_count_label"));
    QCOMPARE(counter->text(), QStringLiteral("(1)"));
}

QTEST_MAIN(TestTagManagerWidget)
#include "tst_vltagmanagerwidget.moc"
