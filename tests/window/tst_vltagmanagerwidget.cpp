// SPDX-License-Identifier: MIT
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "window/page/vltagsearchlineedit.h"
#include "window/vltagmanagerwidget.h"

#include <vlskinsetting.h>

#include <QLabel>
#include <QPushButton>
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

    void windowButtonsOnlyReport()
    {
        const InstalledHost host;
        const OpenWindow open;
        QStringList reports;
        connect(open.window.get(), &IVLTagManagerWidget::signalSoftWareMin, this,
                [&] { reports << QStringLiteral("min"); });
        connect(open.window.get(), &IVLTagManagerWidget::signalSoftWareMax, this,
                [&] { reports << QStringLiteral("max"); });
        connect(open.window.get(), &IVLTagManagerWidget::signalSoftWareClose, this,
                [&] { reports << QStringLiteral("close"); });
        for (QPushButton* button : open.windowButtons())
            QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(reports, QStringList({QStringLiteral("min"), QStringLiteral("max"), QStringLiteral("close")}));
        QVERIFY(open.window->isVisible() && !open.window->isMaximized() && !open.window->isMinimized());
    }

    void maximizeButtonFollowsTheHost()
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
        QVERIFY(open.windowButtons().constFirst()->styleSheet().startsWith(
            QStringLiteral("QPushButton{border:0px;padding-top:5px;padding-bottom:5px;") +
            image("title_window_minisize_normal.svg")));
    }
};

QTEST_MAIN(TestTagManagerWidget)
#include "tst_vltagmanagerwidget.moc"
