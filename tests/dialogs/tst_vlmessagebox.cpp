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
    void showsTheButtonsOfItsMode()
    {
        // The places and texts of the buttons that are seen.
        const QVector<QMap<int, QString>> buttonsByMode = {
            {{129, QStringLiteral("Ok")}},
            {{56, QStringLiteral("Yes")}, {202, QStringLiteral("No")}},
            {{31, QStringLiteral("Yes")}, {137, QStringLiteral("No")}, {243, QStringLiteral("Ok")}},
            {{56, QStringLiteral("Yes")}, {202, QStringLiteral("No")}}};
        for (int mode = 0; mode < buttonsByMode.size(); ++mode) {
            // Coming from the mode that moves every button.
            VLMessageBox* box = openBox(VLMessageBox::ThreeButtons);
            QCOMPARE(int(box->returnValue()), 3);
            box->setCloseButtonVisible(false);
            box->setUp(mode, QStringLiteral("<b>Title</b>"), QStringLiteral("Body"), nullptr);
            QMap<int, QString> shown;
            for (const char* const name : {"confirm_btn", "cancel_btn", "ok_btn"}) {
                if (button(*box, name)->isVisible())
                    shown.insert(button(*box, name)->x(), button(*box, name)->text());
            }
            QCOMPARE(shown, buttonsByMode.at(mode));
            QVERIFY2(button(*box, "btn_close")->isVisible(), "each set-up shows it again");
            QVERIFY(box->isModal());
            QCOMPARE(box->size(), QSize(364, 225));
            QCOMPARE(box->findChild<QLabel*>(QStringLiteral("tips_lab"))->textFormat(), Qt::PlainText);
            box->close();
        }
    }

    void reportsHowItEnded()
    {
        struct End
        {
            const char* button;
            QVector<Qt::Key> keys;
            int closeMeansCancel;
            QVector<int> results;
        };
        const QVector<End> ends = {{"ok_btn", {}, 0, {0}},         {"confirm_btn", {}, 0, {1}},
                                   {"cancel_btn", {}, 0, {2}},     {"btn_close", {}, 0, {}},
                                   {"btn_close", {}, 1, {2}},      {"btn_close", {}, 2, {}},
                                   {"", {Qt::Key_Escape}, 0, {}},  {"", {Qt::Key_Escape}, 1, {2}},
                                   {"", {Qt::Key_Return}, 0, {2}}, {"", {Qt::Key_Left, Qt::Key_Return}, 0, {1}}};
        for (const End& end : ends) {
            QPointer<VLMessageBox> box = openBox(VLMessageBox::ThreeButtons);
            box->setUp(qstrcmp(end.button, "ok_btn") == 0 ? 2 : 1, {}, {}, nullptr);
            box->setCloseMeansCancel(end.closeMeansCancel);
            box->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(box));
            QVector<int> results;
            connect(box.data(), &VLMessageBox::signalResult, box.data(), [&](VLMessageBox::ReturnValue result) {
                QVERIFY(!box->isVisible());
                results.append(result);
            });
            for (const Qt::Key key : end.keys)
                QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, key);
            if (end.keys.isEmpty())
                QTest::mouseClick(button(*box, end.button), Qt::LeftButton);
            QVERIFY(!box->isVisible());
            QVERIFY2(results == end.results, end.button);
            QTRY_VERIFY(!box);
        }
    }

    void canBeShownFromAnotherThread()
    {
        auto* box = new VLMessageBox(nullptr);
        std::thread other([box] {
            emit box->signExecInThread(VLMessageBox::Information, QStringLiteral("Title"), QStringLiteral("Body"),
                                       nullptr);
        });
        other.join();
        QVERIFY(!box->isVisible());
        QTRY_VERIFY(box->isVisible());
        QVERIFY(button(*box, "ok_btn")->isVisible());
        box->close();
    }

    void survivesItsOwnerGoing()
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
};

QTEST_MAIN(TestVLMessageBox)
#include "tst_vlmessagebox.moc"
