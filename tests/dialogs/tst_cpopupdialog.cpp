// SPDX-License-Identifier: MIT
#include "dialogs/cpopupdialog.h"
#include "dialogs/cpopuptitlebarwidget.h"

#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

class TestCPopupDialog : public QObject
{
    Q_OBJECT

private slots:
    void closeButtonActsOnlyWhenWired_data();
    void closeButtonActsOnlyWhenWired();
    void opensModallyInItsFrame();
    void titleBarElementsCanBeShownAndHidden();
};

void TestCPopupDialog::closeButtonActsOnlyWhenWired_data()
{
    QTest::addColumn<bool>("wired");
    QTest::newRow("wired") << true;
    QTest::newRow("not wired") << false;
}

void TestCPopupDialog::closeButtonActsOnlyWhenWired()
{
    QFETCH(bool, wired);
    QPointer<CPopupDialog> dialog = new CPopupDialog(nullptr, wired, false, false, false, true);
    dialog->resize(200, 100);
    dialog->showPopup();
    dialog->setCloseButtonVisible(true);
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("title_bar_close_btn")), Qt::LeftButton);
    QCOMPARE(dialog->isVisible(), !wired);
    if (!wired)
        dialog->close();
    QTRY_VERIFY(!dialog);
}

void TestCPopupDialog::opensModallyInItsFrame()
{
    CPopupDialog dialog(nullptr, true, true, true, true, false);
    dialog.resize(300, 150);
    dialog.setTitleBarHeight(30);
    auto* content = new QWidget;
    content->setFixedSize(100, 20);
    dialog.contentLayout()->addWidget(content);
    dialog.showPopup();

    QVERIFY(dialog.isModal() && dialog.isVisible());
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog.layout()->objectName(), QStringLiteral("main_layout"));
    QCOMPARE(dialog.findChild<QWidget*>(QStringLiteral("wid_main"))->geometry(), dialog.rect());
    QCOMPARE(dialog.findChild<CPopupTitleBarWidget*>()->geometry(), QRect(0, 0, 300, 30));
    QCOMPARE(content->y(), 30 + (150 - 30 - 20) / 2);

    dialog.close();
    dialog.showPopup();
    QVERIFY2(dialog.isVisible(), "without delete-on-close it can be shown again");
}

void TestCPopupDialog::titleBarElementsCanBeShownAndHidden()
{
    CPopupDialog dialog(nullptr, true, false, true, false, false);
    dialog.showPopup();
    auto* bar = dialog.findChild<CPopupTitleBarWidget*>();
    auto* logo = bar->findChild<QWidget*>(QStringLiteral("title_bar_logo"));
    auto* close = bar->findChild<QWidget*>(QStringLiteral("title_bar_close_btn"));
    QVERIFY(!logo->isVisible() && close->isVisible());
    dialog.setLogoVisible(true);
    dialog.setCloseButtonVisible(false);
    QVERIFY(logo->isVisible() && !close->isVisible());

    delete bar;
    dialog.setLogoVisible(false);
    dialog.setCloseButtonVisible(true);
    dialog.setTitleBarHeight(10);
}

QTEST_MAIN(TestCPopupDialog)
#include "tst_cpopupdialog.moc"
