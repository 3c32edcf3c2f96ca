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
    void reportsHowItEnded_data();
    void reportsHowItEnded();
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
    const auto* title = box->findChild<QLabel*>(QStringLiteral("tips_lab"));
    QCOMPARE(title->geometry(), QRect(0, 30, 364, 17));
    QCOMPARE(title->textFormat(), Qt::PlainText);
    const auto* body = box->findChild<QLabel*>(QStringLiteral("lab_context"));
    QCOMPARE(body->geometry(), QRect(30, 76, 300, 70));
    QVERIFY(body->openExternalLinks());
    QCOMPARE(button(*box, "btn_close")->geometry(), QRect(330, 10, 16, 16));
    QVERIFY2(button(*box, "btn_close")->isVisible(), "each set-up shows it again");
    QCOMPARE(button(*box, "confirm_btn")->text(), QStringLiteral("Yes"));
    QCOMPARE(button(*box, "cancel_btn")->text(), QStringLiteral("No"));
    QCOMPARE(button(*box, "ok_btn")->text(), QStringLiteral("Ok"));
    box->close();
}

void TestVLMessageBox::reportsHowItEnded_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<int>("closeMeansCancel");
    QTest::addColumn<int>("result");
    const QVector<int> none;
    constexpr int silence = -1;
    QTest::newRow("ok") << "ok_btn" << none << 0 << 0;
    QTest::newRow("confirm") << "confirm_btn" << none << 0 << 1;
    QTest::newRow("cancel") << "cancel_btn" << none << 0 << 2;
    QTest::newRow("close, not asked") << "btn_close" << none << 0 << silence;
    QTest::newRow("close, asked") << "btn_close" << none << 1 << 2;
    QTest::newRow("close, other value") << "btn_close" << none << 2 << silence;
    QTest::newRow("Escape, not asked") << QString() << QVector<int>{Qt::Key_Escape} << 0 << silence;
    QTest::newRow("Escape, asked") << QString() << QVector<int>{Qt::Key_Escape} << 1 << 2;
    QTest::newRow("Enter") << QString() << QVector<int>{Qt::Key_Return} << 0 << 2;
    QTest::newRow("arrow and Enter") << QString() << QVector<int>{Qt::Key_Left, Qt::Key_Return} << 0 << 1;
}

void TestVLMessageBox::reportsHowItEnded()
{
    QFETCH(QString, button);
    QFETCH(QVector<int>, keys);
    QFETCH(int, closeMeansCancel);
    QFETCH(int, result);
    QPointer<VLMessageBox> box = openBox(button == QLatin1String("ok_btn") ? 2 : 1);
    box->setCloseMeansCancel(closeMeansCancel);
    box->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(box));
    QSignalSpy spy(box.data(), SIGNAL(signalResult(ReturnValue)));
    bool wasVisible = false;
    connect(box.data(), &VLMessageBox::signalResult, this, [&] { wasVisible = box->isVisible(); });
    for (const int key : keys)
        QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, static_cast<Qt::Key>(key));
    if (!button.isEmpty())
        QTest::mouseClick(box->findChild<QPushButton*>(button), Qt::LeftButton);
    QVERIFY(!box->isVisible() && !wasVisible);
    QCOMPARE(spy.count(), result < 0 ? 0 : 1);
    if (result >= 0)
        QCOMPARE(spy.first().first().toInt(), result);
    QTRY_VERIFY(!box);
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
    for (const bool inResult : {true, false}) {
        auto* owner = new QWidget;
        QPointer<VLMessageBox> box = new VLMessageBox(owner);
        box->showBox(1, {}, {}, owner);
        if (inResult)
            connect(box.data(), &VLMessageBox::signalResult, qApp, [owner] { delete owner; });
        else
            connect(box.data(), &QDialog::finished, qApp, [owner] { delete owner; });
        box->on_confirm_btn_clicked();
        QVERIFY(!box);
    }
}

QTEST_MAIN(TestVLMessageBox)
#include "tst_vlmessagebox.moc"
