// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/picturekeywords.h"
#include "host/importer/metadata/readerpool.h"
#include "host/importer/metadata/regularfile.h"
#include "tests/importer/madepictures.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"

#include <QFile>
#include <QRandomGenerator>

/// Cuts and garbles samples of each format and reads them: every one must be answered, with keywords or with a reason.
/// Takes some 30 seconds; with VELLUM_LONG_TESTS set, ten minutes. VELLUM_TEST_SEED sets the seed.
class TestDamagedPictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsSet("VELLUM_TEST_SEED"))
            m_seed = quint32(qEnvironmentVariableIntValue("VELLUM_TEST_SEED"));
        if (qEnvironmentVariableIntValue("VELLUM_LONG_TESTS") > 0)
            m_variants = 12000;
        setUpExiv2();
        qInfo("seed %u, %d variants of each sample and kind", m_seed, m_variants);
    }

    /// Each reaches the reader of its format.
    void readsMadePictures()
    {
        for (const MadePicture& picture : madePictures()) {
            const QByteArray path = QFile::encodeName(m_folder.filePath("made.")) + picture.name;
            writeFile(path, picture.bytes);
            const RegularFile file = RegularFile::open(path);
            const MetadataAnswer answer = readKeywords(file.descriptor.number(), picture.name);
            QVERIFY2(!answer.error.contains("no known picture format"), qPrintable(answer.error));
            QVERIFY2(answer.keywords == (picture.hasKeyword ? QStringList{"sea"} : QStringList()), picture.name);
        }
    }

    void answersCutPictures_data() { addSamples(); }

    void answersCutPictures()
    {
        QFETCH(const QByteArray, sample);
        QFETCH(const QByteArray, whole);
        const int count = variantsOf(whole);
        QVector<QByteArray> variants;
        // The first bytes, where the structure is, one by one; the rest in even steps.
        const int oneByOne = qMin(count / 2, whole.size());
        for (int length = 0; length < oneByOne; ++length)
            variants.append(whole.left(length));
        const int rest = count - oneByOne;
        for (int i = 0; i < rest; ++i)
            variants.append(whole.left(oneByOne + int(qint64(whole.size() - oneByOne) * i / rest)));
        readAll(variants, sample);
    }

    void answersGarbledPictures_data() { addSamples(); }

    void answersGarbledPictures()
    {
        QFETCH(const QByteArray, sample);
        QFETCH(const QByteArray, whole);
        const int count = variantsOf(whole);
        QRandomGenerator random(m_seed);
        QVector<QByteArray> variants;
        for (int i = 0; i < count; ++i)
            variants.append(garbled(whole, i % 2 == 0, random));
        readAll(variants, sample);
    }

private:
    static void addSamples()
    {
        QTest::addColumn<QByteArray>("sample");
        QTest::addColumn<QByteArray>("whole");
        for (const char* const sample :
             {"Landscapes/Morning over the ridge.jpg", "Travel/Held sideways.jpg", "Design/Marks.png",
              "Design/Fans.tif", "Everyday/Shoal.webp", "Design/Poster R.xmp"})
            QTest::newRow(sample) << QByteArray(sample) << fileBytes(QByteArray(VELLUM_SAMPLES "/") + sample);
        for (const MadePicture& picture : madePictures())
            QTest::newRow(picture.name.constData()) << picture.name << picture.bytes;
    }

    /// Of a sample: the made ones are small, and many.
    [[nodiscard]] int variantsOf(const QByteArray& bytes) const
    {
        return bytes.size() < 5000 ? m_variants / 4 : m_variants;
    }

    void readAll(const QVector<QByteArray>& variants, const QByteArray& sample)
    {
        const QByteArray extension = sample.mid(sample.lastIndexOf('.'));
        QVector<QByteArray> paths;
        for (int i = 0; i < variants.size(); ++i) {
            paths.append(QFile::encodeName(m_folder.filePath(QString::number(i))) + extension);
            writeFile(paths.last(), variants.at(i));
        }
        ReaderPool pool({});
        int answered = 0;
        connect(&pool, &ReaderPool::answered, &pool, [&](int index, const MetadataAnswer& answer) {
            ++answered;
            if (answer.error.contains(QLatin1String("brought")) || answer.error.contains(QLatin1String("longer than")))
                qInfo("%s, variant %d: %s", sample.constData(), index, qPrintable(answer.error));
        });
        QSignalSpy failed(&pool, &ReaderPool::failed);
        pool.read(paths);
        // A minute of grace for the few that end by the limit of time.
        QTRY_COMPARE_WITH_TIMEOUT(answered, paths.size(), 60000 + 20 * paths.size());
        QVERIFY(failed.isEmpty());
    }

    QTemporaryDir m_folder;
    quint32 m_seed = 20240229;
    int m_variants = 1200;
};

READER_TEST_MAIN(TestDamagedPictures)
#include "tst_damagedpictures.moc"
