// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "pages/ctaggroupitemwidget.h"
#include "taglist/chipmetrics.h"
#include "taglist/initialletter.h"
#include "taglist/tagdrag.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/support/chipdrag.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QPixmap>
#include <QTextDocument>
#include <QtTest>

namespace {

/// For each script of Unicode the first few of its characters, as one name.
QStringList namesOfAllScripts()
{
    constexpr int charactersOfScript = 3;
    QMap<int, QString> names;
    QMap<int, int> counts;
    for (uint character = 1; character <= QChar::LastValidCodePoint; ++character) {
        const int script = QChar::script(character);
        if (QChar::isSurrogate(character) || !QChar::isPrint(character) || counts[script] == charactersOfScript)
            continue;
        ++counts[script];
        names[script] += QString::fromUcs4(&character, 1);
    }
    return names.values();
}

QStringList strangeNames()
{
    const QChar highSurrogate(0xd83d);
    const QChar lowSurrogate(0xde00);
    return {
        QStringLiteral("e\u0301\u0327\u0302\u0489"),          // combining marks
        QStringLiteral("\u0301first"),                        // nothing to combine with
        QStringLiteral("\u05e9\u05dc\u05d5\u05dd 12 abc"),    // both directions
        QStringLiteral("\u202egnp.exe\u202c \u2066x\u2069"),  // overrides and isolates
        QStringLiteral("\u200b\u200c\u200d\u2060\ufeff"),     // no width at all
        QString(highSurrogate) + QStringLiteral("alone"),
        QStringLiteral("alone") + lowSurrogate,
        QString(lowSurrogate) + highSurrogate,
        QString(QChar(0xfdd0)) + QChar(0xfffe) + QChar(0xffff),  // no characters
        QStringLiteral("nul") + QChar(0) + QStringLiteral("inside"),
        QString(QChar(0)),
        QStringLiteral("\u0001\u001b[31m\u007f"),
        QStringLiteral("tab\there\nline\u2028separator"),
        QStringLiteral("<b>bold</b><img src='file:///etc/passwd'>"),
        QStringLiteral("<a href=\"file:///etc/passwd\">x</a>"),
        QStringLiteral("&amp; &lt; &#65; A&B && &C"),
        QStringLiteral("%1 %2 %3 %4 %5 %n %s %L1 %%"),
        QStringLiteral("'\"`\\\"' \\n \\u0041"),
        QStringLiteral("'); DROP TABLE tags; --"),
        QStringLiteral("../../etc/passwd"),
        QStringLiteral("{color:red} * { display:none }"),
        QStringLiteral("url(http://localhost/x)"),
        QString::fromUcs4(U"\U0001f468\u200d\U0001f469\u200d\U0001f467 \U0001f1e9\U0001f1ea"),
        QStringLiteral(" "),
        QString(),
    };
}

/// Names so long that anything that grows with their square would never come back.
QStringList longNames()
{
    return {QString(2000, QLatin1Char('w')), QStringLiteral("long ").repeated(400), QString(2000, QChar(0x0301)),
            QString(100000, QLatin1Char('x')), QStringLiteral("\u4e2d").repeated(100000)};
}

void addRows(const QStringList& names)
{
    int number = 0;
    for (const QString& name : names)
        QTest::newRow(qPrintable(QString::number(number++))) << name;
}

QString plain(const QString& richText)
{
    QTextDocument document;
    document.setHtml(richText);
    return document.toPlainText();
}

}  // namespace

/// Names from all over: each is filed, sorted, searched, painted, measured, renamed, dragged and shown as it was typed.
class TestNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log = std::make_unique<MessageCatcher>(); }

    void cleanup()
    {
        QStringList problems = m_log->problems();
        m_log.reset();
        // Not every machine has fonts for every script.
        const auto aboutFonts = [](const QString& text) {
            return text.contains(QLatin1String("OpenType support missing"));
        };
        problems.erase(std::remove_if(problems.begin(), problems.end(), aboutFonts), problems.end());
        QCOMPARE(problems, QStringList());
    }

    void oneByOne_data()
    {
        QTest::addColumn<QString>("name");
        addRows(strangeNames() + namesOfAllScripts().mid(0, 200));
    }

    void oneByOne()
    {
        QFETCH(const QString, name);
        InstalledHost host({QStringLiteral("other"), name});
        host.setFileCount(2, 7);
        const qint64 group = host.addGroup(name);
        host.addTagsToGroups({group}, {2});
        WindowUser user;
        settle();

        const gestures::ChipPlace chip = gestures::findChip(user.list(), name);
        QVERIFY(chip.view);
        QCOMPARE(chip.view->letter(), initialLetter(name));
        const int width = ChipMetrics::shared().chipSize(name, 7, chip.view->chipLook()).width();
        QVERIFY(width >= 44 && width < 1000);
        QCOMPARE(chip.view->visualRect(chip.index).width(), width);
        const std::unique_ptr<QMimeData> dragged(makeTagMimeData(2));
        QCOMPARE(dragged->formats(), QStringList("TagManager_Group_List_View"));
        QCOMPARE(dragged->data(dragged->formats().first()), chipPayload(2));

        QMenu* menu = user.openTagMenu(name);
        QVERIFY(menu);
        QCOMPARE(user.groupChoices(), QStringList{name});
        QVERIFY(WindowUser::choose(menu, QStringLiteral("Delete Tag")));
        const auto* body = user.box()->findChild<QLabel*>(QStringLiteral("lab_context"));
        // Directions are kept apart and white space is kept whole by characters that nobody sees.
        QString question = plain(body->text());
        question.remove(QChar(0x2068)).remove(QChar(0x2069));
        QVERIFY2(question.endsWith(QStringLiteral("(The files will not be deleted.) ")) || question.contains("7 files"),
                 qPrintable(question));
        if (!name.trimmed().isEmpty() && name.at(0).isLetter() && !name.contains(QLatin1Char('\n')))
            QVERIFY2(question.contains(name.left(10)), qPrintable(question));
        user.answerBox(false);
        settle();

        user.selectPage(WindowUser::Categories);
        user.clickTile(user.addNewTile());
        user.closeDialog();
        const auto tiles = user.window()->findChildren<CTagGroupItemWidget*>();
        const auto found =
            std::find_if(tiles.begin(), tiles.end(), [group](auto* each) { return each->groupId() == group; });
        QVERIFY(found != tiles.end());
        user.clickTile(*found);
        QCOMPARE(user.header(), name + QStringLiteral("(1)"));
        const auto* header = user.window()->findChild<QLabel*>(QStringLiteral("tag_manager_group_name"));
        QCOMPARE(header->textFormat(), Qt::PlainText);
        QCOMPARE((*found)->findChild<QLabel*>(QStringLiteral("tag_group_name_label"))->textFormat(), Qt::PlainText);
        QVERIFY(!user.window()->grab().isNull());
        host.renameTag(2, QStringLiteral("back ") + name);
        QVERIFY(gestures::findChip(user.list(), QStringLiteral("back ") + name).view);
    }

    void longNamesLeaveTheWindowUsable_data()
    {
        QTest::addColumn<QString>("name");
        addRows(longNames());
    }

    void longNamesLeaveTheWindowUsable()
    {
        QFETCH(const QString, name);
        InstalledHost host({QStringLiteral("before"), name, name.left(3) + QStringLiteral("y"), QStringLiteral("zz")});
        const qint64 group = host.addGroup(name);
        host.addTagsToGroups({group}, {1, 2, 3, 4});
        WindowUser user;
        for (const int page : {WindowUser::AllTags, WindowUser::Categories}) {
            user.selectPage(page);
            if (page == WindowUser::Categories)
                QTest::mouseClick(user.window()->findChildren<CTagGroupItemWidget*>().constLast(), Qt::LeftButton);
            settle();
            QRegion taken;
            for (const VLTagListView* section : user.page(page)->findChildren<VLTagListView*>()) {
                if (!section->isVisible())
                    continue;
                for (int row = 0; row < section->model()->rowCount(); ++row) {
                    const QRect chip = section->visualRect(section->model()->index(row, 0))
                                           .translated(section->viewport()->mapTo(user.window(), QPoint()));
                    QVERIFY(!taken.intersects(chip));
                    taken += chip;
                }
            }
            QVERIFY(!user.window()->grab().isNull());
            QCOMPARE(user.window()->width(), 1000);
            QVERIFY(user.window()->minimumSizeHint().width() <= 1000);
            const auto* count = user.page(page)->findChild<QLabel*>("tag_manager_group_count");
            QVERIFY(!count || count->visibleRegion().boundingRect() == count->rect());
        }
        user.selectPage(WindowUser::AllTags);
        QVERIFY(gestures::rightClickChip(user.list(), QStringLiteral("zz")));
        user.search(QStringLiteral("zz"));
        settle();
        QCOMPARE(user.chips().size(), 1);
        user.search({});
        settle();
        QVERIFY(WindowUser::choose(user.openTagMenu(name), QStringLiteral("Delete Tag")));
        const auto* body = user.box()->findChild<QLabel*>(QStringLiteral("lab_context"));
        QVERIFY(body->text().size() < 5000);
        user.answerBox(true);
        settle();
        QVERIFY(!gestures::findChip(user.list(), name).view);
    }

private:
    std::unique_ptr<MessageCatcher> m_log;
};

QTEST_MAIN(TestNames)
#include "tst_names.moc"
