// SPDX-License-Identifier: MIT
#include "host/app/dialogs/missingpicturesquestion.h"
#include "host/app/widgets/importbar.h"
#include "host/app/widgets/wrappedlabel.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

/// What is said of an import, and what is asked after it.
class TestImportBar : public QObject
{
    Q_OBJECT

private slots:
    void importBarShowsWhatIsNew()
    {
        ImportBar bar;
        const auto outcome = [&bar](const ImportSummary& summary) -> QString {
            bar.showOutcome(summary);
            return bar.isHidden() ? QString() : bar.findChild<WrappedLabel*>()->text();
        };
        const auto shows = [&bar](const char* button) {
            return !bar.findChild<QPushButton*>(QLatin1String(button))->isHidden();
        };
        ImportSummary summary;
        summary.unreadable = 7;
        QCOMPARE(outcome(summary), QString());
        summary.skipped = 1;
        QCOMPARE(outcome(summary), QStringLiteral("1 file could not be read and was left out."));
        QVERIFY(shows("import_bar_skipped") && !shows("import_bar_remove") && shows("import_bar_dismiss"));
        summary.skipped = 0;
        summary.missing = 1200;
        summary.away = 1;
        QCOMPARE(outcome(summary), QStringLiteral("1,200 pictures are missing from the folder. 1 picture is away: its "
                                                  "disk may not be connected."));
        QVERIFY(!shows("import_bar_skipped") && shows("import_bar_remove") && !shows("import_bar_cancel"));
        bar.showProgress(3, 10);
        QVERIFY(!shows("import_bar_remove") && shows("import_bar_cancel"));
        QSignalSpy cancelled(&bar, &ImportBar::cancelRequested);
        bar.findChild<QPushButton*>("import_bar_cancel")->click();
        QCOMPARE(cancelled.size(), 1);
        summary.error = QStringLiteral("<b>%1</b>");
        QVERIFY(outcome(summary).endsWith(QLatin1String("<b>%1</b>")));
        bar.showAbsence({"/a", "/b"});
        const QString absence = outcome({});
        QVERIFY2(absence.contains("“/a”") && absence.contains("“/b”"), qPrintable(absence));
    }

    void missingPicturesAreKeptUnlessRemoved()
    {
        for (const auto& [key, removed] : {std::pair{Qt::Key_Escape, 0}, {Qt::Key_Return, 0}, {Qt::Key_Tab, 1}}) {
            MissingPicturesQuestion question(2);
            QSignalSpy confirmed(&question, &MissingPicturesQuestion::removalConfirmed);
            question.open();
            QTest::keyClick(&question, key);
            if (removed > 0)  // The other button has the focus.
                QTest::keyClick(question.focusWidget(), Qt::Key_Space);
            QVERIFY(question.isHidden());
            QCOMPARE(confirmed.size(), removed);
        }
    }
};

QTEST_MAIN(TestImportBar)
#include "tst_importbar.moc"
