// SPDX-License-Identifier: MIT
#include <vleventtrack.h>

#include <QSignalSpy>
#include <QTest>

class TestEventTrack : public QObject
{
    Q_OBJECT

private slots:
    void everyOperationReportsItsNameAndArguments();
};

void TestEventTrack::everyOperationReportsItsNameAndArguments()
{
    VlEventTrack* track = VlEventTrack::GetInstance();
    QSignalSpy spy(track, &VlEventTrack::signalTracked);

    track->CreateTag(0, QStringLiteral("100% 猫"));
    track->SendLabelJoin(1);
    track->ClickTagManagerAddBtn(2);
    track->SendBClickLabelMenu(QStringLiteral("Delete Tag"), QString());

    const QList<QVariantList> expected = {
        {QStringLiteral("CreateTag"), QVariantList{0, QStringLiteral("100% 猫")}},
        {QStringLiteral("SendLabelJoin"), QVariantList{1}},
        {QStringLiteral("ClickTagManagerAddBtn"), QVariantList{2}},
        {QStringLiteral("SendBClickLabelMenu"), QVariantList{QStringLiteral("Delete Tag"), QString()}},
    };
    QCOMPARE(static_cast<QList<QVariantList>>(spy), expected);
}

QTEST_GUILESS_MAIN(TestEventTrack)
#include "tst_eventtrack.moc"
