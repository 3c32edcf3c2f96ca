// SPDX-License-Identifier: MIT
#include "host/library/query/queryparser.h"
#include "host/library/readonlylibrary.h"
#include "host/library/requests/librarycommand.h"
#include "tests/library/libraryfixture.h"

#include <QDateTime>
#include <QTest>

namespace {

ImportedFile picture(const QByteArray& path, const QVector<QString>& keywords, qint64 modified = 1)
{
    return {path, {100, modified, {}}, 1, {}, keywords};
}

/// A name with what must be escaped in a query: a "b" \c
QString oddName()
{
    return QStringLiteral("a 'b' /c").replace('\'', '"').replace('/', '\\');
}

}  // namespace

/// Queries by several conditions, and the tags that a person puts on files and merges.
class TstFileQuery : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
        ImportedFile dated = picture("2024/d.jpg", {});
        dated.taken = QDateTime(QDate(2024, 5, 17), QTime(10, 0), Qt::UTC).toMSecsSinceEpoch();
        QVERIFY(
            f->import({picture("2023/a.jpg", {"Beach", "family"}), picture("2023/b.jpg", {"beach", "blurry"}),
                       picture("2024/Café 1.jpg", {"Café", "not"}), dated, picture("e.jpg", {"ＢＥＡＣＨ", oddName()})})
                .succeeded());
        QVERIFY(f->createCategories({"Places"}));
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {idOf("Beach"), idOf("Café")})), 0);
    }

    void cleanup()
    {
        QTRY_COMPARE(f->shown(), f->stored());
        f->close();
        QCOMPARE(LibraryFixture::integrity(f->path()), QStringLiteral("ok"));
    }

    void findsByWords_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("files");
        QTest::newRow("case and width") << "beach"
                                        << "abe";
        QTest::newRow("accents") << "CAFE"
                                 << "C";
        QTest::newRow("quoted, exact") << "\"beach\""
                                       << "b";
        QTest::newRow("quoted, escaped") << queryparser::quoted(oddName()) << "e";
        QTest::newRow("and before or") << "family or beach and blurry"
                                       << "ab";
        QTest::newRow("blank is and") << "beach not(family OR blurry)"
                                      << "e";
        QTest::newRow("not before and") << "not beach and not untagged"
                                        << "C";
        QTest::newRow("not not") << "not not family"
                                 << "a";
        QTest::newRow("word as a tag") << "\"not\""
                                       << "C";
        QTest::newRow("untagged") << "untagged"
                                  << "d";
        QTest::newRow("category") << "category:places"
                                  << "aC";
        QTest::newRow("category, quoted") << "not category:\"Places\""
                                          << "bde";
        QTest::newRow("name") << "name:cafe or name:E.J"
                              << "Ce";
        QTest::newRow("date") << "date:2024-05 or date:..2023"
                              << "d";
        QTest::newRow("folder") << "folder:2023 -"
                                << "";
        QTest::newRow("folder alone") << "FOLDER:2023"
                                      << "ab";
        QTest::newRow("colon of a tag") << "people:anna or family"
                                        << "a";
    }
    void findsByWords()
    {
        QFETCH(QString, query);
        QTEST(lettersOf(query), "files");
    }

    void wrongQuerySaysWhere_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("position");
        QTest::newRow("empty") << "" << 0;
        QTest::newRow("nothing after and") << "beach and " << 10;
        QTest::newRow("nothing before or") << "or beach" << 0;
        QTest::newRow("open bracket") << "a (b or (c)" << 2;
        QTest::newRow("closing bracket") << "a b)" << 3;
        QTest::newRow("open quotation mark") << "a \"b" << 2;
        QTest::newRow("empty quotation") << "a \"\"" << 2;
        QTest::newRow("key without a value") << "name: a" << 0;
        QTest::newRow("date") << "date:2024-13" << 0;
        QTest::newRow("range backwards") << "a date:2024..2023" << 2;
        QTest::newRow("depth") << QString(10000, '(') << 200;
    }
    void wrongQuerySaysWhere()
    {
        QFETCH(QString, query);
        const queryparser::Parsed parsed = queryparser::parse(query);
        QVERIFY(!parsed.term);
        QVERIFY(!parsed.error.isEmpty());
        QTEST(parsed.position, "position");
    }

    void longQueryIsAnswered() { QCOMPARE(lettersOf(QStringLiteral("beach or ").repeated(1200) + "x"), "abe"); }

    void datesCoverWholePeriods()
    {
        const auto within = [](const char* query, const char* day) {
            const QueryTerm term = queryparser::parse(QString("date:") + query).term.value_or(QueryTerm());
            const qint64 time = QDateTime::fromString(day, Qt::ISODate).toMSecsSinceEpoch();
            return term.from <= time && time < term.until;
        };
        QVERIFY(within("2024-02", "2024-02-29T23:59:59Z") && !within("2024-02", "2024-03-01T00:00:00Z"));
        QVERIFY(within("2023..2024-01-05", "2024-01-05T23:59:59Z") && !within("2023..2024-01-05", "2024-01-06T00:00Z"));
        QVERIFY(within("..2024", "1871-01-01T00:00:00Z") && !within("2024..", "2023-12-31T23:59:59Z"));
    }

    void tagsOfPersonSurviveImports()
    {
        const QVector<qint64> ids = idsOf("name:a.jpg or name:d.jpg");
        const qint64 beach = idOf("Beach");
        QVERIFY(done({ids, {}, {"New", "family"}, {beach}}).succeeded());
        QCOMPARE(lettersOf("\"New\""), "ad");
        QCOMPARE(lettersOf("family"), "ad");
        QCOMPARE(lettersOf("\"Beach\""), "");
        QVERIFY(
            f->import({picture("2023/a.jpg", {"Beach", "family", "x"}, 2), picture("2024/d.jpg", {}, 2)}).succeeded());
        QCOMPARE(lettersOf("\"New\" family not beach"), "ad");
        // What the file itself says by now needs no decision, so that it can be taken back in the file.
        QVERIFY(f->import({picture("2024/d.jpg", {"New"}, 3)}).succeeded());
        QVERIFY(f->import({picture("2024/d.jpg", {}, 4)}).succeeded());
        QCOMPARE(lettersOf("\"New\""), "a");
        // And back again: nothing is left of the decisions.
        QVERIFY(done({ids, {beach}, {}, {idOf("New"), idOf("family")}}).succeeded());
        QVERIFY(done({{ids.at(1)}, {}, {}, {beach}}).succeeded());
        QCOMPARE(lettersOf("\"Beach\""), "a");
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"SELECT tag_id || ' ' || sign FROM decisions"}),
                 QStringList(QString::number(idOf("family")) + " -1"));
        QVERIFY(done({ids, {beach}, {}, {}}).change.isEmpty() == false);
        QVERIFY(done({ids, {beach}, {}, {}}).change.isEmpty());
        QCOMPARE(done({{999}, {beach}, {}, {}}).status, LibraryStatus::UnknownId);
    }

    void mergedTagsAreOne()
    {
        const qint64 into = idOf("beach");
        const QVector<qint64> others = {idOf("Beach"), idOf("ＢＥＡＣＨ"), into};
        QVERIFY(done({idsOf("name:a.jpg"), {}, {}, {idOf("Beach")}}).succeeded());
        QVERIFY(done({idsOf("name:d.jpg"), {idOf("ＢＥＡＣＨ")}, {}, {}}).succeeded());
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({1}, {idOf("ＢＥＡＣＨ")})), 0);
        QVERIFY(f->library()->carryOutAndWait(LibraryCommand::mergeTags(others, into)).succeeded());
        QCOMPARE(lettersOf("beach"), "bde");
        QCOMPARE(lettersOf("category:Places"), "bCde");
        QTRY_COMPARE(f->group(1)->tagCount(0), 1);
        // The names of the merged ones lead to what they became, also where a decision was about them.
        QVERIFY(f->import({picture("2023/a.jpg", {"Beach", "y"}, 5), picture("f.jpg", {"Beach"})}).succeeded());
        QCOMPARE(lettersOf("beach"), "bdef");
    }

    void rehearsalChangesNothing()
    {
        const QStringList before = f->stored();
        const LibraryResult result = f->library()->carryOutAndWait(
            LibraryCommand::tagFiles({idsOf("beach"), {}, {"New"}, {idOf("blurry")}}), Library::Mode::Rehearsal);
        QCOMPARE(result.change.tagsCreated.size(), 1);
        QCOMPARE(result.change.fileCountChanges.value(result.change.tagsCreated.constFirst().id), 3);
        QCOMPARE(result.change.fileCountChanges.value(idOf("blurry")), -1);
        QCOMPARE(f->stored(), before);
    }

private:
    LibraryResult done(const FileTagging& tagging)
    {
        return f->library()->carryOutAndWait(LibraryCommand::tagFiles(tagging));
    }

    qint64 idOf(const QString& tag)
    {
        const auto tags = ReadOnlyLibrary::open(f->path())->tags();
        for (const TagRow& row : tags.value) {
            if (row.name == tag)
                return row.id;
        }
        return 0;
    }

    QVector<qint64> idsOf(const QString& query)
    {
        const queryparser::Parsed parsed = queryparser::parse(query);
        return parsed.term ? ReadOnlyLibrary::open(f->path())->fileIds(FileQuery::matching(*parsed.term)).value
                           : QVector<qint64>();
    }

    /// The first letters of the names of the files found.
    QString lettersOf(const QString& query)
    {
        QString letters;
        const auto files = ReadOnlyLibrary::open(f->path())->files(idsOf(query));
        for (const FileRow& file : files.value)
            letters += QString::fromUtf8(file.relativePath.mid(file.relativePath.lastIndexOf('/') + 1)).at(0);
        return letters;
    }

    std::unique_ptr<LibraryFixture> f;
};

QTEST_GUILESS_MAIN(TstFileQuery)
#include "tst_filequery.moc"
