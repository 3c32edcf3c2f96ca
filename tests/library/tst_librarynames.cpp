// SPDX-License-Identifier: MIT
#include "host/library/librarystatus.h"
#include "host/library/tagname.h"
#include "tests/library/libraryfixture.h"

#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QTest>

/// Which names are the same, and that each comes back from the disk as it was typed.
class TstLibraryNames : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anyNameSurvives_data();
    void anyNameSurvives();
    void spelling();
    void sameNames_data();
    void sameNames();
    void differentNames();
    void emptyNames_data();
    void emptyNames();
    void reservedCategoryNamesAreTaken();
    void aTagMayBeCalledAsACategory();

private:
    std::unique_ptr<LibraryFixture> f;
};

void TstLibraryNames::init()
{
    f = std::make_unique<LibraryFixture>();
    QVERIFY(f->isOpen());
}

void TstLibraryNames::anyNameSurvives_data()
{
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, const QString& name) { QTest::newRow(title) << name; };
    row("Chinese", QStringLiteral("\u6c34\u58a8\u753b"));
    row("emoji", QString::fromUtf8("\xf0\x9f\x8e\xa8 art"));
    row("decomposed", QStringLiteral("cafe\u0301"));
    row("singleton", QStringLiteral("\u212b"));
    row("lone high surrogate", QStringLiteral("a") + QChar(0xd800) + "b");
    row("lone low surrogate at the end", QStringLiteral("a") + QChar(0xdc00));
    row("swapped surrogates", QString(QChar(0xdc00)) + QChar(0xd800));
    row("NUL inside", QStringLiteral("a") + QChar(0) + "b");
    row("NUL alone", QString(QChar(0)));
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

void TstLibraryNames::anyNameSurvives()
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

void TstLibraryNames::spelling()
{
    // The same name typed another way is a change of its spelling.
    QVERIFY(f->createTags({QStringLiteral("caf\u00e9")}));
    QCOMPARE(f->statusOf(f->tags()->renameTag(1, QStringLiteral("cafe\u0301"))), 0);
    QVERIFY(f->reopen());
    QCOMPARE(f->tag(1)->name(), QStringLiteral("cafe\u0301"));
    QCOMPARE(f->statusOf(f->tags()->renameTag(1, QStringLiteral("caf\u00e9"))), 0);
    QVERIFY(f->reopen());
    QCOMPARE(f->tag(1)->name(), QStringLiteral("caf\u00e9"));
}

void TstLibraryNames::sameNames_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("equal") << "red"
                           << "red";
    QTest::newRow("white space at the ends") << "red"
                                             << "\t red\u3000\n";
    QTest::newRow("composed and decomposed") << QStringLiteral("\u00e9t\u00e9") << QStringLiteral("e\u0301te\u0301");
    QTest::newRow("Hangul syllable and letters") << QStringLiteral("\uac00") << QStringLiteral("\u1100\u1161");
    QTest::newRow("both spoiled by text") << QString(QChar(0xd800)) << " " + QString(QChar(0xd800));
}

void TstLibraryNames::sameNames()
{
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    QVERIFY(f->createTags({first, "other"}));
    QVERIFY(f->createCategories({first, "other"}));
    const int taken = int(LibraryStatus::NameTaken);
    QCOMPARE(f->statusOf(f->tags()->createTags({{"fresh", 0, 0}, {second, 0, 0}})), taken);
    QCOMPARE(f->statusOf(f->tags()->createTags({{"x", 0, 0}, {"x ", 0, 0}})), taken);
    QCOMPARE(f->statusOf(f->tags()->renameTag(2, second)), taken);
    QCOMPARE(f->statusOf(f->categories()->addTagGroup(second)), taken);
    QCOMPARE(f->statusOf(f->categories()->renameTagGroup(3, second)), taken);
    QCOMPARE(f->group(-1)->tagByName(second), f->tag(1));
    QCOMPARE(f->manager()->tagGroupByName(second), f->group(2));
    QCOMPARE(f->group(-1)->tagCount(1), 2);
    QCOMPARE(f->shown(), f->stored());
}

void TstLibraryNames::differentNames()
{
    QVERIFY(f->createTags({"Red", "red",
                           QStringLiteral("r\u200b"
                                          "ed"),
                           QStringLiteral("\uff52\uff45\uff44")}));
    QCOMPARE(f->group(-1)->tagCount(1), 4);
}

void TstLibraryNames::emptyNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("white space") << " \t\n\u00a0\u3000";
}

void TstLibraryNames::emptyNames()
{
    QFETCH(const QString, name);
    QVERIFY(f->createTags({"one"}));
    QVERIFY(f->createCategories({"left"}));
    const int empty = int(LibraryStatus::NameEmpty);
    QCOMPARE(f->statusOf(f->tags()->createTags({{name, 0, 0}})), empty);
    QCOMPARE(f->statusOf(f->tags()->renameTag(1, name)), empty);
    QCOMPARE(f->statusOf(f->categories()->addTagGroup(name)), empty);
    QCOMPARE(f->statusOf(f->categories()->renameTagGroup(2, name)), empty);
}

void TstLibraryNames::reservedCategoryNamesAreTaken()
{
    for (const char* name : {"Favorite Tags", " Uncategorized", "All Tags"})
        QCOMPARE(f->statusOf(f->categories()->addTagGroup(name)), int(LibraryStatus::NameTaken));
    QCOMPARE(f->manager()->tagGroupByName("Favorite Tags"), f->group(1));
}

void TstLibraryNames::aTagMayBeCalledAsACategory()
{
    QVERIFY(f->createCategories({"same"}));
    QVERIFY(f->createTags({"same", "Uncategorized"}));
}

QTEST_GUILESS_MAIN(TstLibraryNames)

#include "tst_librarynames.moc"
