// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"

#include <vlskinsetting.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

#include <thread>

namespace {
QPushButton* button(const VLMessageBox& box, const char* name)
{
    return box.findChild<QPushButton*>(QLatin1String(name));
}

VLMessageBox* openBox(int mode)
{
    auto* box = new VLMessageBox(nullptr);
    box->showBox(mode, QStringLiteral("<b>Title</b>"), QStringLiteral("Body <b>text</b>"), nullptr);
    return box;
}
}  // namespace

class TestVLMessageBox : public QObject
{
    Q_OBJECT

private slots:
    void showsTheButtonsOfItsMode_data();
    void showsTheButtonsOfItsMode();
    void hasItsGeometryAndTexts();
    void reportsTheButtonAfterClosing_data();
    void reportsTheButtonAfterClosing();
    void closeReportsCancelOnlyWhenAsked_data();
    void closeReportsCancelOnlyWhenAsked();
    void isWorkedByKeyboard();
    void canBeShownFromAnotherThread();
    void survivesItsOwnerGoing();
};

void TestVLMessageBox::showsTheButtonsOfItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QRect>("yes");
    QTest::addColumn<QRect>("no");
    QTest::addColumn<QRect>("ok");
    const QRect yes(56, 167, 106, 28);
    const QRect no(202, 167, 106, 28);
    QTest::newRow("information") << 0 << QRect() << QRect() << QRect(129, 167, 106, 28);
    QTest::newRow("question") << 1 << yes << no << QRect();
    QTest::newRow("three") << 2 << QRect(31, 167, 90, 28) << QRect(137, 167, 90, 28) << QRect(243, 167, 90, 28);
    QTest::newRow("warning") << 3 << yes << no << QRect();
}

void TestVLMessageBox::showsTheButtonsOfItsMode()
{
    QFETCH(int, mode);
    // Coming from the mode that moves every button.
    VLMessageBox* box = openBox(VLMessageBox::ThreeButtons);
    box->setUp(mode, {}, {}, nullptr);
    const QVector<QPair<const char*, QString>> buttons = {
        {"yes", QStringLiteral("confirm_btn")}, {"no", QStringLiteral("cancel_btn")}, {"ok", QStringLiteral("ok_btn")}};
    for (const auto& [column, name] : buttons) {
        const QRect expected = *static_cast<const QRect*>(QTest::qData(column, qMetaTypeId<QRect>()));
        const auto* shown = box->findChild<QPushButton*>(name);
        QCOMPARE(shown->isVisible(), !expected.isNull());
        if (!expected.isNull())
            QCOMPARE(shown->geometry(), expected);
    }
    box->close();
}

void TestVLMessageBox::hasItsGeometryAndTexts()
{
    auto* box = new VLMessageBox(nullptr);
    QCOMPARE(box->windowTitle(), QStringLiteral("Vellum"));
    QCOMPARE(int(box->returnValue()), 3);
    box->setCloseButtonVisible(false);
    box->showBox(1, QStringLiteral("<b>Title</b>"), QStringLiteral("Body <b>text</b>"), nullptr);
    QCOMPARE(box->windowTitle(), QStringLiteral("VLMessageBox"));
    QVERIFY(box->isModal() && box->isVisible());
    QCOMPARE(box->size(), QSize(364, 225));
    QCOMPARE(box->findChild<QWidget*>(QStringLiteral("main_wid"))->geometry(), box->rect());
    const auto* title = box->findChild<QLabel*>(QStringLiteral("tips_lab"));
    QCOMPARE(title->geometry(), QRect(0, 30, 364, 17));
    QCOMPARE(title->text(), QStringLiteral("<b>Title</b>"));
    QCOMPARE(title->textFormat(), Qt::PlainText);
    const auto* body = box->findChild<QLabel*>(QStringLiteral("lab_context"));
    QCOMPARE(body->geometry(), QRect(30, 76, 300, 70));
    QCOMPARE(body->text(), QStringLiteral("Body <b>text</b>"));
    QVERIFY(body->openExternalLinks());
    QCOMPARE(button(*box, "btn_close")->geometry(), QRect(330, 10, 16, 16));
    QVERIFY2(button(*box, "btn_close")->isVisible(), "each set-up shows it again");
    QCOMPARE(button(*box, "confirm_btn")->text(), QStringLiteral("Yes"));
    QCOMPARE(button(*box, "cancel_btn")->text(), QStringLiteral("No"));
    QCOMPARE(button(*box, "ok_btn")->text(), QStringLiteral("Ok"));
    box->close();
}

void TestVLMessageBox::reportsTheButtonAfterClosing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");
    QTest::newRow("ok") << "ok_btn" << 0;
    QTest::newRow("confirm") << "confirm_btn" << 1;
    QTest::newRow("cancel") << "cancel_btn" << 2;
}

void TestVLMessageBox::reportsTheButtonAfterClosing()
{
    QFETCH(QString, name);
    QFETCH(int, value);
    QPointer<VLMessageBox> box = openBox(2);
    QSignalSpy spy(box.data(), SIGNAL(signalResult(ReturnValue)));
    bool wasVisible = true;
    connect(box.data(), &VLMessageBox::signalResult, this, [&] { wasVisible = box->isVisible(); });
    QTest::mouseClick(box->findChild<QPushButton*>(name), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toInt(), value);
    QCOMPARE(int(box->returnValue()), value);
    QVERIFY(!wasVisible);
    QTRY_VERIFY(!box);
}

void TestVLMessageBox::closeReportsCancelOnlyWhenAsked_data()
{
    QTest::addColumn<int>("flag");
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<int>("results");
    QTest::newRow("button, not asked") << 0 << false << 0;
    QTest::newRow("button, asked") << 1 << false << 1;
    QTest::newRow("button, other value") << 2 << false << 0;
    QTest::newRow("key, not asked") << 0 << true << 0;
    QTest::newRow("key, asked") << 1 << true << 1;
}

void TestVLMessageBox::closeReportsCancelOnlyWhenAsked()
{
    QFETCH(int, flag);
    QFETCH(bool, byKey);
    QFETCH(int, results);
    QPointer<VLMessageBox> box = openBox(1);
    box->setCloseMeansCancel(flag);
    QSignalSpy spy(box.data(), &VLMessageBox::signalResult);
    if (byKey)
        QTest::keyClick(box.data(), Qt::Key_Escape);
    else
        QTest::mouseClick(button(*box, "btn_close"), Qt::LeftButton);
    QVERIFY(!box->isVisible());
    QCOMPARE(spy.count(), results);
    if (results)
        QCOMPARE(spy.first().first().toInt(), 2);
    QTRY_VERIFY(!box);
}

void TestVLMessageBox::isWorkedByKeyboard()
{
    const QVector<QPair<QVector<Qt::Key>, int>> ways = {
        {{Qt::Key_Return}, 2}, {{Qt::Key_Left, Qt::Key_Return}, 1}, {{Qt::Key_Left, Qt::Key_Right, Qt::Key_Space}, 2}};
    for (const auto& [keys, value] : ways) {
        VLMessageBox* box = openBox(1);
        QSignalSpy spy(box, &VLMessageBox::signalResult);
        box->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(box));
        for (const Qt::Key key : keys)
            QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, key);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().first().toInt(), value);
    }
}

void TestVLMessageBox::canBeShownFromAnotherThread()
{
    auto* box = new VLMessageBox(nullptr);
    std::thread other([box] {
        emit box->signExecInThread(VLMessageBox::Information, QStringLiteral("Title"), QStringLiteral("Body"), nullptr);
    });
    other.join();
    QVERIFY(!box->isVisible());
    QTRY_VERIFY(box->isVisible());
    QVERIFY(button(*box, "ok_btn")->isVisible());
    box->close();
}

void TestVLMessageBox::survivesItsOwnerGoing()
{
    auto* owner = new QWidget;
    owner->show();
    QPointer<VLMessageBox> box = new VLMessageBox(owner);
    box->showBox(1, {}, {}, owner);
    connect(box.data(), &VLMessageBox::signalResult, qApp, [owner] { delete owner; });
    button(*box, "confirm_btn")->click();
    QVERIFY(!box);

    owner = new QWidget;
    box = new VLMessageBox(owner);
    QSignalSpy spy(box.data(), &VLMessageBox::signalResult);
    box->showBox(1, {}, {}, owner);
    connect(box.data(), &QDialog::finished, qApp, [owner] { delete owner; });
    box->on_confirm_btn_clicked();
    QVERIFY(!box);
    QCOMPARE(spy.count(), 0);
}

QTEST_MAIN(TestVLMessageBox)
#include "tst_vlmessagebox.moc"
