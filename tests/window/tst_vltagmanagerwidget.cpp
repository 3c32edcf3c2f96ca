// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/vlgrouptagwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"
#include "window/page/vltagsearchlineedit.h"
#include "window/vltagmanagerwidget.h"

#include <vlskinsetting.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QStackedWidget>
#include <QTest>

#include <memory>

namespace {

/// The tag manager window as a host shows it.
struct OpenWindow
{
    OpenWindow()
        : window(std::make_unique<VLTagManagerWidget>())
        , stack(window->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly))
    {
        window->resize(1100, 700);
        window->show();
    }

    QPushButton* pageButton(const QString& text) const
    {
        for (QPushButton* button : window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn"))) {
            if (button->text() == text)
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

    std::unique_ptr<VLTagManagerWidget> window;
    QStackedWidget* stack;
};

/// What a person sees of the widgets that the Tab key goes to, until it comes to one for the second time.
QStringList tabStops()
{
    QStringList stops;
    QSet<const QWidget*> seen;
    for (QWidget* stop = QApplication::focusWidget(); stop && !seen.contains(stop);
         stop = QApplication::focusWidget()) {
        seen.insert(stop);
        if (const auto* field = qobject_cast<QLineEdit*>(stop))
            stops << field->placeholderText();
        else if (const auto* button = qobject_cast<QAbstractButton*>(stop))
            stops << button->text();
        else if (const auto* section = qobject_cast<VLTagListView*>(stop))
            stops << section->letter();
        else
            stops << stop->metaObject()->className();
        QTest::keyClick(stop, Qt::Key_Tab);
    }
    return stops;
}

/// The three pages of a window inside a white one, in a process with that style sheet.
QVector<QImage> pagesInALightHost(const QString& styleSheet)
{
    qApp->setStyleSheet(styleSheet);
    QWidget light;
    light.setPalette(QPalette(Qt::white));
    auto* window = new VLTagManagerWidget(&light);
    window->resize(900, 600);
    light.resize(900, 600);
    light.show();
    QVector<QImage> images;
    for (QPushButton* button : window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn"))) {
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
        window->findChild<QStackedWidget*>()->setFocus();
        images << light.grab().toImage();
    }
    qApp->setStyleSheet({});
    return images;
}

QString image(const char* name)
{
    return VLSkinSetting::GetInstance()->GetResourcePath(QLatin1String(name));
}

}  // namespace

class TestTagManagerWidget : public QObject
{
    Q_OBJECT

private slots:
    void pageButtonsSwitchAndLog()
    {
        struct Page
        {
            QString title;
            QString description;
            bool isSearchable;
            QString line;
        };
        const QVector<Page> pages = {
            {"All Tags",
             "Tag-based file classification and filing help categorize and organize files more "
             "efficiently.",
             true, "VLTagManagerWidget::slotSelectedAllLabel select all tag"},
            {"Tag Categories",
             "You can categorize the tags with different meanings to manage and conveniently use "
             "them.",
             false, "VLTagManagerWidget::slotSelectedGroup select group"},
            {"Favorite Tags", "You can save frequently used tags as Favorite Tags for easier targeting and tagging.",
             true, "VLTagManagerWidget::slotSelectedCommon select common"}};
        const InstalledHost host;
        const OpenWindow open;
        QCOMPARE(open.checkedButtons(), QStringList(pages.first().title));
        MessageCatcher log;
        for (int number : {2, 1, 0}) {
            const Page& page = pages.at(number);
            for (int click = 0; click < 2; ++click) {
                QTest::mouseClick(open.pageButton(page.title), Qt::LeftButton);
                QCOMPARE(open.checkedButtons(), QStringList(page.title));
                QCOMPARE(open.stack->currentIndex(), number);
            }
            QCOMPARE(log.take(), QStringList({page.line, page.line}));
            const QWidget* shown = open.stack->currentWidget();
            QCOMPARE(shown->findChild<QLabel*>(QStringLiteral("tag_page_title"))->text(), page.title);
            QCOMPARE(shown->findChild<QLabel*>(QStringLiteral("tag_page_des"))->text(), page.description);
            const auto* field = shown->findChild<VLTagSearchLineEdit*>();
            QCOMPARE(field->isVisible(), page.isSearchable);
            QCOMPARE(field->placeholderText(), QStringLiteral("Search Tags"));
        }
    }

    void tabGoesThroughTheWindowAsItIsRead()
    {
        InstalledHost host({QStringLiteral("d"), QStringLiteral("b")});
        const qint64 group = host.addGroup(QStringLiteral("group"));
        const OpenWindow open;
        open.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(open.window.get()));
        host.addTags({QStringLiteral("a"), QStringLiteral("c")});
        settle();
        QCOMPARE(tabStops(), (QStringList{"Search Tags", "Create Tags", "A", "B", "C", "D"}));

        QTest::mouseClick(open.pageButton(QStringLiteral("Tag Categories")), Qt::LeftButton);
        QTest::mouseClick(open.window->findChild<CTagGroupShowWidgt*>()->itemWidget(
                              open.window->findChild<CTagGroupShowWidgt*>()->item(0)),
                          Qt::LeftButton);
        host.addTagsToGroups({group}, {1, 3});
        host.addTagsToGroups({group}, {2, 4});
        settle();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(tabStops(), (QStringList{"A", "B", "C", "D", "Create Tags"}));
    }

    void questionsGoWithTheWindowThatAsked()
    {
        InstalledHost host({QStringLiteral("tag")});
        const qint64 group = host.addGroup(QStringLiteral("group"));
        QWidget hostWindow;
        auto* window = new VLTagManagerWidget(&hostWindow);
        hostWindow.show();
        window->findChild<VLGroupTagWidget*>()->slotDelGroup(group);
        window->findChild<VLTagGroupListView*>()->slotDelTag(1);
        QCOMPARE(hostWindow.findChildren<VLMessageBox*>().size(), 2);
        delete window;
        QTRY_VERIFY(hostWindow.findChildren<VLMessageBox*>().isEmpty());
    }

    void lookIsTheSkinsInEveryHost()
    {
        InstalledHost host({QStringLiteral("apple"), QStringLiteral("bee")});
        host.addGroups({QStringLiteral("Art"), QStringLiteral("Books")});
        host.setFavorite(1, true);
        const QVector<QImage> plain = pagesInALightHost({});
        QVERIFY(plain.first().pixelColor(5, 5).lightness() < 80);
        const QVector<QImage> styled = pagesInALightHost(
            QStringLiteral("QWidget{background-color:white;color:black;font-size:17px;}"
                           "QLabel{color:#222;padding:3px;border:1px solid red;}"
                           "QPushButton{background-color:#eee;border:2px solid #888;border-radius:6px;padding:6px 20px;"
                           "margin:2px;min-height:40px;min-width:140px;font-weight:bold;color:black;}"
                           "QAbstractScrollArea{background:white;border:1px solid #ccc;padding:4px;}"
                           "QLineEdit{background:white;padding:8px;min-height:30px;}"));
        for (int page = 0; page < plain.size(); ++page)
            QVERIFY2(styled.at(page) == plain.at(page), qPrintable(QString::number(page)));
    }

    void maximizeButtonFollowsTheHost()
    {
        const InstalledHost host;
        const OpenWindow open;
        const QPushButton* button = open.windowButtons().at(1);
        for (const bool isMaximized : {true, false}) {
            open.window->updateMaximizeButton(isMaximized);
            const QByteArray name = isMaximized ? "title_window_restore_" : "title_window_maxsize_";
            for (const char* state : {"normal.svg", "hover.svg"}) {
                const QByteArray file = name + state;
                QVERIFY(button->styleSheet().contains(image(file)));
            }
        }
    }
};

QTEST_MAIN(TestTagManagerWidget)
#include "tst_vltagmanagerwidget.moc"
