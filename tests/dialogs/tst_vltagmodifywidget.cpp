// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "plugin/vltagmanagersingleton.h"
#include "tests/support/memoryhost.h"

#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

namespace {
const QString kLongTag = QStringLiteral("a tag of 25 characters ab");
const QString kLongGroup = QStringLiteral("a group of 25 characters!");
}  // namespace

class TestVLTagModifyWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void looksAsItsModeSays_data();
    void looksAsItsModeSays();
    void checksNames_data();
    void checksNames();
    void enterConfirmsAgainAndEscapeDoesNothing();
    void survivesItsOwnerGoingFromInsideTheSignal();

private:
    QScopedPointer<MemoryHost> m_host;
};

static QPushButton* confirmButton(const VLTagModifyWidget& dialog)
{
    for (auto* button : dialog.findChildren<QPushButton*>(QStringLiteral("tag_popup_btn"))) {
        if (!button->isHidden())
            return button;
    }
    return nullptr;
}

static QLabel* tip(const VLTagModifyWidget& dialog)
{
    return dialog.findChild<QLabel*>(QStringLiteral("tag_popup_tip"));
}

void TestVLTagModifyWidget::init()
{
    m_host.reset(new MemoryHost);
    m_host->addTags(QStringList{QStringLiteral("Zebra"), kLongTag});
    m_host->addGroups({QStringLiteral("Animals"), kLongGroup});
    VLTagManagerSingleton::instance()->setDataProvider(m_host->library());
    VLTagManagerSingleton::instance()->tagManagerProvider();
}

void TestVLTagModifyWidget::cleanup()
{
    VLTagManagerSingleton::instance()->clear();
    m_host.reset();
}

void TestVLTagModifyWidget::looksAsItsModeSays_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("button");
    QTest::newRow("rename tag") << 0 << "Modify Tags"
                                << "Modify";
    QTest::newRow("create tag") << 1 << "Create Tags"
                                << "Create";
    QTest::newRow("rename category") << 2 << "Modify Tag Categories"
                                     << "Modify";
    QTest::newRow("create category") << 3 << "Create Tag Categories"
                                     << "Create";
}

void TestVLTagModifyWidget::looksAsItsModeSays()
{
    QFETCH(int, mode);
    QFETCH(QString, title);
    QFETCH(QString, button);
    QPointer<VLTagModifyWidget> dialog = new VLTagModifyWidget(mode, nullptr);
    dialog->showPopup();
    QVERIFY(dialog->isModal() && dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog->size(), QSize(304, 186));
    QCOMPARE(dialog->findChild<QWidget*>(QStringLiteral("wid_main"))->geometry(), dialog->rect());
    QCOMPARE(confirmButton(*dialog)->text(), button);
    QCOMPARE(confirmButton(*dialog)->geometry(), QRect(99, 128, 106, 28));
    QCOMPARE(dialog->lineEdit()->geometry(), QRect(30, 76, 244, 22));
    auto* label = dialog->findChild<QLabel*>(QStringLiteral("tag_popup_ttile"));
    QFont font;
    font.setPixelSize(16);
    const int width = QFontMetrics(font).boundingRect(title).width();
    QCOMPARE(label->text(), title);
    QCOMPARE(label->geometry(), QRect((304 - width) / 2, 30, width, 16));
    QVERIFY(!tip(*dialog)->isVisible());
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("title_bar_close_btn")), Qt::LeftButton);
    QTRY_VERIFY(!dialog);
}

void TestVLTagModifyWidget::checksNames_data()
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expectedTip");
    const QString empty = QStringLiteral("Please insert a name");
    const QString taken = QStringLiteral("Name already exists");
    const QString tooLong = QStringLiteral("20 characters maximum");
    const QString full(20, QLatin1Char('x'));
    QTest::newRow("tag: blanks") << false << "  \t " << empty;
    QTest::newRow("tag: taken") << false << " Zebra " << taken;
    QTest::newRow("tag: too long") << false << QString(full + QLatin1Char('x')) << tooLong;
    QTest::newRow("tag: taken comes before too long") << false << kLongTag << taken;
    QTest::newRow("tag: name of a category") << false << "Animals" << QString();
    QTest::newRow("tag: full length between blanks")
        << false << QString(QLatin1Char(' ') + full + QLatin1Char(' ')) << QString();
    QTest::newRow("category: blanks") << true << "   " << empty;
    QTest::newRow("category: too long comes before taken") << true << kLongGroup << tooLong;
    QTest::newRow("category: name of a tag") << true << "Zebra" << QString();
    QTest::newRow("category: eleven pairs of surrogates")
        << true << QString::fromUtf8("\U0001F600").repeated(11) << tooLong;
}

void TestVLTagModifyWidget::checksNames()
{
    QFETCH(bool, group);
    QFETCH(QString, text);
    QFETCH(QString, expectedTip);
    const char* const tagSignals[] = {SIGNAL(signRenameTag(QString)), SIGNAL(signCreateTag(QString))};
    const char* const groupSignals[] = {SIGNAL(signalRenameGroup(QString)), SIGNAL(signcreateGroup(QString))};
    for (int create = 0; create < 2; ++create) {
        auto* dialog = new VLTagModifyWidget(group ? 2 + create : create, nullptr);
        QSignalSpy spy(dialog, group ? groupSignals[create] : tagSignals[create]);
        dialog->showPopup();
        dialog->lineEdit()->setText(text);
        QTest::mouseClick(confirmButton(*dialog), Qt::LeftButton);
        QCOMPARE(tip(*dialog)->isVisible(), !expectedTip.isEmpty());
        QCOMPARE(tip(*dialog)->text(), expectedTip);
        QCOMPARE(spy.count(), expectedTip.isEmpty() ? 1 : 0);
        if (expectedTip.isEmpty())
            QCOMPARE(spy.first().first().toString(), text.trimmed());
        QCOMPARE(confirmButton(*dialog)->isEnabled(), !expectedTip.isEmpty());
        QVERIFY(dialog->isVisible());
        dialog->close();
    }
}

void TestVLTagModifyWidget::enterConfirmsAgainAndEscapeDoesNothing()
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

void TestVLTagModifyWidget::survivesItsOwnerGoingFromInsideTheSignal()
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

QTEST_MAIN(TestVLTagModifyWidget)
#include "tst_vltagmodifywidget.moc"
