// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "tests/support/memoryhost.h"
#include "tests/support/patience.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

namespace {
const QString longTag = QStringLiteral("a tag of 25 characters ab");
const QString longGroup = QStringLiteral("a group of 25 characters!");

QPushButton* confirmButton(const VLTagModifyWidget& dialog)
{
    for (auto* button : dialog.findChildren<QPushButton*>(QStringLiteral("tag_popup_btn"))) {
        if (!button->isHidden())
            return button;
    }
    return nullptr;
}

QLabel* tip(const VLTagModifyWidget& dialog)
{
    return dialog.findChild<QLabel*>(QStringLiteral("tag_popup_tip"));
}
}  // namespace

class TestVLTagModifyWidget : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host.reset(new MemoryHost);
        m_host->addTags(QStringList{QStringLiteral("Zebra"), longTag});
        m_host->addGroups({QStringLiteral("Animals"), longGroup});
        VLTagManagerSingleton::instance()->setDataProvider(m_host->library());
        VLTagManagerSingleton::instance()->tagManagerProvider();
    }

    void cleanup()
    {
        VLTagManagerSingleton::instance()->clear();
        m_host.reset();
    }

    void looksAsItsModeSays()
    {
        const QVector<QPair<QString, QString>> textsByMode = {
            {QStringLiteral("Modify Tags"), QStringLiteral("Modify")},
            {QStringLiteral("Create Tags"), QStringLiteral("Create")},
            {QStringLiteral("Modify Tag Categories"), QStringLiteral("Modify")},
            {QStringLiteral("Create Tag Categories"), QStringLiteral("Create")}};
        for (int mode = 0; mode < textsByMode.size(); ++mode) {
            QPointer<VLTagModifyWidget> dialog = new VLTagModifyWidget(mode, nullptr);
            dialog->showPopup();
            QVERIFY(dialog->isModal());
            const auto* title = dialog->findChild<QLabel*>(QStringLiteral("tag_popup_ttile"));
            QCOMPARE(title->text(), textsByMode.at(mode).first);
            QVERIFY2(qAbs(title->geometry().center().x() - dialog->rect().center().x()) <= 1, "in the middle");
            QCOMPARE(confirmButton(*dialog)->text(), textsByMode.at(mode).second);
            QVERIFY(!tip(*dialog)->isVisible());
            QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("title_bar_close_btn")), Qt::LeftButton);
            QTRY_VERIFY(!dialog);
        }
    }

    void titleIsWholeAndCornersAreOpen()
    {
        VLTagModifyWidget dialog(VLTagModifyWidget::RenameGroup, nullptr);
        dialog.setAttribute(Qt::WA_DeleteOnClose, false);
        auto* title = dialog.findChild<QLabel*>(QStringLiteral("tag_popup_ttile"));
        const QImage shown = title->grab().toImage();
        QSet<int> rows;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (shown.pixel(x, y) != shown.pixel(0, 0))
                    rows.insert(y);
            }
        }
        // From the capitals to the descenders; the edges are soft.
        QVERIFY(rows.size() >= QFontMetrics(title->font()).tightBoundingRect(title->text()).height() - 1);

        QVERIFY(!dialog.mask().contains(QPoint(0, 0)) && dialog.mask().contains(QPoint(0, 20)));
        QImage frame(dialog.size(), QImage::Format_ARGB32_Premultiplied);
        frame.fill(Qt::transparent);
        dialog.render(&frame, {}, {}, QWidget::DrawChildren);
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x)
                QVERIFY(qAlpha(frame.pixel(x, y)) == 0 || dialog.mask().contains(QPoint(x, y)));
        }
    }

    void checksNames()
    {
        const QString empty = QStringLiteral("Please insert a name");
        const QString taken = QStringLiteral("Name already exists");
        const QString tooLong = QStringLiteral("20 characters maximum");
        const QString full(20, QLatin1Char('x'));
        struct Case
        {
            bool isGroup;
            QString text;
            QString tip;
        };
        const QVector<Case> cases = {{false, QStringLiteral("  \t "), empty},
                                     {false, QStringLiteral(" Zebra "), taken},
                                     {false, full + QLatin1Char('x'), tooLong},
                                     {false, longTag, taken},
                                     {false, QStringLiteral("Animals"), {}},
                                     {false, QLatin1Char(' ') + full + QLatin1Char(' '), {}},
                                     {true, QStringLiteral("   "), empty},
                                     {true, QStringLiteral("Animals"), taken},
                                     {true, longGroup, tooLong},
                                     {true, QStringLiteral("Zebra"), {}},
                                     {true, QStringLiteral("\U0001F600").repeated(11), tooLong}};
        const char* const signalsByMode[] = {SIGNAL(signRenameTag(QString)), SIGNAL(signCreateTag(QString)),
                                             SIGNAL(signalRenameGroup(QString)), SIGNAL(signcreateGroup(QString))};
        for (const Case& each : cases) {
            for (const int mode : {each.isGroup ? 2 : 0, each.isGroup ? 3 : 1}) {
                auto* dialog = new VLTagModifyWidget(mode, nullptr);
                QSignalSpy spy(dialog, signalsByMode[mode]);
                dialog->showPopup();
                dialog->lineEdit()->setText(each.text);
                QTest::mouseClick(confirmButton(*dialog), Qt::LeftButton);
                QVERIFY2(tip(*dialog)->text() == each.tip, qPrintable(each.text));
                QCOMPARE(tip(*dialog)->isVisible(), !each.tip.isEmpty());
                QCOMPARE(spy.count(), each.tip.isEmpty() ? 1 : 0);
                if (each.tip.isEmpty())
                    QCOMPARE(spy.first().first().toString(), each.text.trimmed());
                QCOMPARE(confirmButton(*dialog)->isEnabled(), !each.tip.isEmpty());
                QVERIFY(dialog->isVisible());
                dialog->close();
            }
        }
    }

    void enterConfirmsAgainAndEscapeDoesNothing()
    {
        auto* dialog = new VLTagModifyWidget(0, nullptr);
        QSignalSpy spy(dialog, &VLTagModifyWidget::signRenameTag);
        dialog->lineEdit()->setText(QStringLiteral("Zebra"));
        dialog->showPopup();
        dialog->activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), dialog->lineEdit());
        QCOMPARE(dialog->lineEdit()->selectedText(), QStringLiteral("Zebra"));
        QTest::keyClick(dialog->lineEdit(), Qt::Key_Return);
        QTest::keyClick(dialog->lineEdit(), Qt::Key_Escape);
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(dialog->isVisible() && tip(*dialog)->isVisible());
        dialog->lineEdit()->setText(QStringLiteral("Otter"));
        QTest::keyClick(dialog->lineEdit(), Qt::Key_Return);
        QVERIFY(!confirmButton(*dialog)->isEnabled());
        QTest::keyClick(dialog->lineEdit(), Qt::Key_Enter);
        QCOMPARE(spy.count(), 2);
        dialog->close();
    }

    void survivesItsOwnerGoingFromInsideTheSignal()
    {
        auto* owner = new QWidget;
        owner->show();
        QPointer<VLTagModifyWidget> dialog = new VLTagModifyWidget(1, owner);
        connect(dialog.data(), &VLTagModifyWidget::signCreateTag, qApp, [owner] { delete owner; });
        dialog->showPopup();
        dialog->lineEdit()->setText(QStringLiteral("Otter"));
        dialog->slotCreateLabel();
        QVERIFY(!dialog);
    }

private:
    QScopedPointer<MemoryHost> m_host;
};

QTEST_MAIN(TestVLTagModifyWidget)
#include "tst_vltagmodifywidget.moc"
