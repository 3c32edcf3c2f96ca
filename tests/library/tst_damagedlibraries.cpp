// SPDX-License-Identifier: MIT
#include "host/library/readonlylibrary.h"
#include "tests/library/libraryfixture.h"

#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

/// Library files with bytes changed, pages exchanged or the end cut off. Whatever of it opens is read and written to,
/// and nothing may crash, hang or say that it is done when the library says otherwise.
class TestDamagedLibraries : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        LibraryFixture fixture;
        QVERIFY(fixture.isOpen());
        QVERIFY(fixture.createTags({"apple", "pear", "quince", "中文"}));
        QVERIFY(fixture.createCategories({"fruit", "colours"}));
        QVector<ImportedFile> files;
        for (int i = 0; i < 300; ++i)
            files.append(picture(i));
        QVERIFY(fixture.import(files).succeeded());
        fixture.close();
        QFile file(fixture.path());
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_whole = file.readAll();
        QVERIFY(m_whole.size() > 20 * pageSize);
    }

    void damagedLibrariesFailOrWork()
    {
        const quint32 seed = qEnvironmentVariableIsSet("VELLUM_SEED") ? qEnvironmentVariableIntValue("VELLUM_SEED")
                                                                      : QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        const int rounds = qEnvironmentVariableIsSet("VELLUM_LONG_TESTS") ? 10'000 : 100;
        int opened = 0;
        for (int round = 0; round < rounds; ++round) {
            const QTemporaryDir folder;
            const QString path = folder.filePath("damaged.vellum");
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(damaged(random));
            file.close();
            readAll(path);
            opened += use(path) ? 1 : 0;
        }
        qInfo("%d of %d damaged libraries opened", opened, rounds);
        QVERIFY(opened > 0 && opened < rounds);
    }

private:
    static constexpr int pageSize = 4096;

    static ImportedFile picture(int number)
    {
        ImportedFile file;
        file.path = QByteArray::number(number) + ".png";
        file.state.size = number;
        file.keywords = {QStringLiteral("keyword %1").arg(number % 40), QStringLiteral("apple")};
        return file;
    }

    QByteArray damaged(QRandomGenerator& random) const
    {
        QByteArray bytes = m_whole;
        const int pages = bytes.size() / pageSize;
        switch (random.bounded(4)) {
        case 0:
            bytes.truncate(random.bounded(1, bytes.size()));
            break;
        case 1:
            bytes.replace(random.bounded(1, pages) * pageSize, pageSize,
                          bytes.mid(random.bounded(pages) * pageSize, pageSize));
            break;
        default:
            for (int flips = random.bounded(1, 30); flips > 0; --flips)
                bytes[random.bounded(bytes.size())] = char(random.bounded(256));
        }
        return bytes;
    }

    static void readAll(const QString& path)
    {
        const std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(path);
        if (!reader)
            return;
        const ReadOnlyLibrary::Snapshot snapshot(*reader);
        (void)reader->tags();
        (void)reader->categories();
        (void)reader->tagLinks();
        (void)reader->keywordsIgnored();
        (void)reader->totals();
        (void)reader->forEachFile([](const FileRow&) { return true; });
    }

    /// Whether the library opened; what it answers as done is read again from its file.
    static bool use(const QString& path)
    {
        LibraryFixture fixture(path);
        if (!fixture.isOpen())
            return false;
        const bool created = fixture.statusOf(fixture.tags()->createTags({{QStringLiteral("new"), 0, 1}})) == 0;
        (void)fixture.tags()->deleteTags({1});
        const LibraryResult imported = fixture.import({picture(7), picture(1000)});
        fixture.close();
        const QStringList rows =
            LibraryFixture::rowsOf(path, {"SELECT name FROM tags WHERE name = 'new'",
                                          "SELECT path FROM files WHERE path = x'313030302e706e67'"});
        // A row that the damage itself hides from its index is still there.
        if (created && !rows.contains(QStringLiteral("new")) && LibraryFixture::integrity(path) == QLatin1String("ok"))
            QTest::qFail("a tag that was answered as created is not in the file", __FILE__, __LINE__);
        if (imported.succeeded() && rows.isEmpty() && LibraryFixture::integrity(path) == QLatin1String("ok"))
            QTest::qFail("a picture that was answered as imported is not in the file", __FILE__, __LINE__);
        return true;
    }

    QByteArray m_whole;
};

QTEST_GUILESS_MAIN(TestDamagedLibraries)
#include "tst_damagedlibraries.moc"
