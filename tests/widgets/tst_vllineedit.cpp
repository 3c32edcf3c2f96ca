// SPDX-License-Identifier: MIT
#include "widgets/vllineedit.h"
#include "window/page/vltagsearchlineedit.h"

#include <vlskinsetting.h>

#include <QTest>
#include <QVBoxLayout>

namespace {

QString argb(const QColor& color)
{
    return color.name(QColor::HexArgb);
}

/// Written out whole: programs outside compare these texts.
QString style(const QString& alignment, bool isFocused)
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString state = isFocused
                              ? QStringLiteral("31,32,45,255);border:1px solid;border-color:rgba(172, 178, 198,255)")
                              : QString(QStringLiteral("42,44,56,255);border:1px;solid;border-color:") +
                                        argb(skin->GetPopupWinBorderColor()));
    return QStringLiteral("font-size:12px;font-family:\"Microsoft YaHei\";border-radius:4px;background-color:rgba(") +
           state + QStringLiteral(";qproperty-alignment:") + alignment + QStringLiteral(";color:") +
           argb(skin->GetTextColor(1)) + QStringLiteral(";");
}

}  // namespace

class TestLineEdit : public QObject
{
    Q_OBJECT

private slots:
    void restylesWithTheFocus()
    {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* plain = new VLLineEdit;
        auto* search = new VLTagSearchLineEdit;
        search->focusChanged(false);
        layout->addWidget(plain);
        layout->addWidget(search);
        const QString padding = QStringLiteral("padding-left: 28px;");
        const QString center = QStringLiteral("AlignHCenter");
        const QString left = QStringLiteral("AlignLeft");
        QCOMPARE(plain->styleSheet(), style(center, false));
        QCOMPARE(search->styleSheet(), padding + style(left, false));

        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::mouseClick(search, Qt::LeftButton);
        QCOMPARE(search->styleSheet(), padding + style(left, true));
        QTest::mouseClick(plain, Qt::LeftButton);
        QCOMPARE(search->styleSheet(), padding + style(left, false));
        QCOMPARE(plain->styleSheet(), style(center, true));
        QCOMPARE(plain->alignment(), Qt::AlignHCenter);
        QCOMPARE(search->alignment(), Qt::AlignLeft);
        QCOMPARE(plain->contextMenuPolicy(), Qt::NoContextMenu);
        // A style sheet resets the palette.
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(plain->palette().color(group, QPalette::PlaceholderText), QColor(162, 171, 195, 255));
    }
};

QTEST_MAIN(TestLineEdit)
#include "tst_vllineedit.moc"
