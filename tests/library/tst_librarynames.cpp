// SPDX-License-Identifier: MIT
#include "tests/library/libraryfixture.h"

#include <QTest>

/// Which names are the same, and that each comes back from the disk as it was typed.
class TstLibraryNames : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
    }

    void anyNameSurvives_data()
    {
        QTest::addColumn<QString>("name");
        const auto row = [](const char* title, const QString& name) { QTest::newRow(title) << name; };
        row("Chinese", QStringLiteral("\u6c34\u58a8\u753b"));
        row("emoji", QString::fromUtf8("\xf0\x9f\x8e\xa8 art"));
        row("decomposed", QStringLiteral("cafe\u0301"));
        row("singleton", QStringLiteral("\u212b"));
        row("byte order mark first", QChar(0xfeff) + QStringLiteral("a"));
        row("swapped byte order mark", QChar(0xfffe) + QStringLiteral("a"));
        row("noncharacters", QString(QChar(0xfdd0)) + QChar(0xffff));
        row("noncharacter beyond the first plane", QString(QChar(0xdbff)) + QChar(0xdfff));
        row("overrides and zero width", QStringLiteral("\u202eabc\u200b\u200d"));
        row("markup", QStringLiteral("<b>x</b> &amp; %1 %n"));
        row("SQL", QStringLiteral("'); DROP TABLE tags; --\""));
        row("line feeds inside", QStringLiteral("a\n\tb\r"
                                                "c"));
        row("long", QString(100000, QChar(0x00e9)));
    }

    void anyNameSurvives()
    {
        QFETCH(const QString, name);
        QVERIFY(f->createTags({"before"}));
        QVERIFY(f->createTags({name}));
        QVERIFY(f->createCategories({name}));
        QCOMPARE(f->statusOf(f->tags()->createTags({{name, 0, 0}})), int(LibraryStatus::NameTaken));
        QVERIFY(f->reopen());
        QCOMPARE(f->tag(2)->name(), name);
        QCOMPARE(f->group(2)->groupInfo()->name(), name);
        QCOMPARE(f->group(-1)->tagByName(name), f->tag(2));
        QCOMPARE(f->manager()->tagGroupByName(name), f->group(2));
        QCOMPARE(f->shown(), f->stored());
        // To another name and back.
        QCOMPARE(f->statusOf(f->tags()->renameTag(2, "plain")), 0);
        QCOMPARE(f->statusOf(f->tags()->renameTag(1, name)), 0);
        QCOMPARE(f->shown(), f->stored());
        QCOMPARE(f->tag(1)->name(), name);
    }

    void sameNames()
    {
        const QVector<QStringList> pairs = {
            {"red", "red"},
            {"with white space", "\t with white space\u3000\n"},
            {"composed and decomposed \u00e9t\u00e9", "composed and decomposed e\u0301te\u0301"},
            {"Hangul syllable and letters \uac00", "Hangul syllable and letters \u1100\u1161"},
            {"spoiled by text " + QString(QChar(0xffff)), " spoiled by text " + QString(QChar(0xffff))}};
        QVERIFY(f->createTags({"other"}));
        QVERIFY(f->createCategories({"other"}));
        qint64 id = 1;
        for (const QStringList& names : pairs) {
            ++id;
            QVERIFY(f->createTags({names.first()}));
            QVERIFY(f->createCategories({names.first()}));
            const QStringList before = f->shown();
            for (const qint64 request :
                 {f->tags()->createTags({{"fresh", 0, 0}, {names.last(), 0, 0}}), f->tags()->renameTag(1, names.last()),
                  f->categories()->addTagGroup(names.last()), f->categories()->renameTagGroup(2, names.last())})
                QVERIFY2(f->statusOf(request) == int(LibraryStatus::NameTaken), qPrintable(names.first()));
            QCOMPARE(f->group(-1)->tagByName(names.last()), f->tag(id));
            QCOMPARE(f->manager()->tagGroupByName(names.last()), f->group(id + 1));
            QCOMPARE(f->shown(), before);
            // Its own name typed another way is a change of its spelling.
            QCOMPARE(f->statusOf(f->tags()->renameTag(id, names.last())), 0);
            QVERIFY(f->reopen());
            QCOMPARE(f->tag(id)->name(), names.last().trimmed());
            QCOMPARE(f->shown(), f->stored());
        }
        QCOMPARE(f->statusOf(f->tags()->createTags({{"x", 0, 0}, {"x ", 0, 0}})), int(LibraryStatus::NameTaken));
    }

    void differentNames()
    {
        // A tag may be called as a category.
        const QStringList names = {"Red", "red", "r\u200bed", "\uff52\uff45\uff44", "Unsorted"};
        QVERIFY(f->createCategories(names.mid(0, 4)));
        QVERIFY(f->createTags(names));
        QCOMPARE(f->group(-1)->tagCount(1), 5);
    }

    void refusedNames()
    {
        QVERIFY(f->createTags({"one"}));
        QVERIFY(f->createCategories({"left"}));
        for (const QString& name : {QString(), QString(""), QString(" \t\n\u00a0\u3000")}) {
            for (const qint64 request : {f->tags()->createTags({{name, 0, 0}}), f->tags()->renameTag(1, name),
                                         f->categories()->addTagGroup(name), f->categories()->renameTagGroup(2, name)})
                QCOMPARE(f->statusOf(request), int(LibraryStatus::NameEmpty));
        }
        const QVector<QString> invalid = {QString(QChar(0)), QString("a") + QChar(0xd800), QChar(0xd800) + QString("b"),
                                          QChar(0xdc00) + QString("b"), QString(QChar(0xdc00)) + QChar(0xd800)};
        for (const QString& name : invalid) {
            for (const qint64 request : {f->tags()->createTags({{name, 0, 0}}), f->tags()->renameTag(1, name),
                                         f->categories()->addTagGroup(name), f->categories()->renameTagGroup(2, name)})
                QCOMPARE(f->statusOf(request), int(LibraryStatus::NameInvalid));
            QVERIFY(f->import({{"a", {}, 1, {}, {{name, "fine"}}}}).succeeded());
        }
        QTRY_COMPARE(f->group(-1)->tagCount(1), 2);
        for (const char* name : {"Favorite Tags", " Unsorted", "Uncategorized", "All Tags"})
            QCOMPARE(f->statusOf(f->categories()->addTagGroup(name)), int(LibraryStatus::NameTaken));
        QCOMPARE(f->manager()->tagGroupByName("Favorite Tags"), f->group(1));
    }

private:
    std::unique_ptr<LibraryFixture> f;
};

QTEST_GUILESS_MAIN(TstLibraryNames)

#include "tst_librarynames.moc"
