// SPDX-License-Identifier: MIT
#include "host/app/commands/picturefile.h"
#include "host/app/files/pictureopener.h"
#include "host/app/files/thumbnail.h"
#include "host/app/files/thumbnailloader.h"
#include "host/importer/metadata/imagecontent.h"
#include "tests/app/picturefolder.h"
#include "tests/importer/readermain.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

/// What becomes of picture files of every kind, by their paths as bytes.
class TestThumbnail : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("XDG_DATA_HOME", m_folder.path());
        qputenv("XDG_CONFIG_HOME", m_folder.path());
    }

    void picturesAreTurnedUpright()
    {
        struct Case
        {
            int orientation = 1;
            QSize size;
            QPoint red;
            QPoint blue;
        };
        for (const auto& [orientation, size, red, blue] :
             {Case{1, {64, 32}, {8, 16}, {56, 16}}, Case{3, {64, 32}, {56, 16}, {8, 16}},
              Case{6, {32, 64}, {16, 8}, {16, 56}}}) {
            const QByteArray path = m_folder.write("turned.jpg", PictureFolder::jpeg(QSize(640, 320), orientation));
            const Thumbnail thumbnail = load(path, 64);
            QCOMPARE(thumbnail.state, Thumbnail::Loaded);
            QCOMPARE(thumbnail.image.size(), size);
            QVERIFY(thumbnail.image.pixelColor(red).red() > 200);
            QVERIFY(thumbnail.image.pixelColor(blue).blue() > 200);
        }
    }

    void sizesAndWhatIsNoPicture()
    {
        QCOMPARE(load(m_folder.writePng("tall.png", QSize(300, 600)), 128).image.size(), QSize(64, 128));
        QCOMPARE(load(m_folder.writePng("thread.png", QSize(2000, 1)), 128).image.size(), QSize(128, 1));
        QCOMPARE(load(m_folder.writePng("small.png", QSize(16, 12)), 128).image.size(), QSize(16, 12));
        QCOMPARE(load(m_folder.writePng("small.png", QSize(30, 20)), 128).image.size(), QSize(30, 20));
        const QByteArray truncated = PictureFolder::jpeg(QSize(64, 64), 1).left(100);
        QCOMPARE(load(m_folder.write("text.png", "no picture"), 64).state, Thumbnail::Unreadable);
        QCOMPARE(load(m_folder.write("empty.png", {}), 64).state, Thumbnail::Unreadable);
        QCOMPARE(load(m_folder.write("short.jpg", truncated), 64).state, Thumbnail::Unreadable);
        QCOMPARE(load(m_folder.path("none.png"), 64).state, Thumbnail::Missing);
        QCOMPARE(load(m_folder.path(), 64).state, Thumbnail::Missing);

        const QByteArray pipe = m_folder.path("pipe.png");
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QCOMPARE(load(pipe, 64).state, Thumbnail::Missing);
    }

    void unchangedPicturesAreNotDecodedAgain()
    {
        const QByteArray path = m_folder.writePng("kept.png", QSize(30, 20));
        const Thumbnail::Source source = load(path, 64).source;
        QCOMPARE(load(path, 64, source).state, Thumbnail::Unchanged);
        m_folder.writePng("kept.png", QSize(50, 40));
        QCOMPARE(load(path, 64, source).image.size(), QSize(50, 40));
    }

    void namesMayBeAnyBytes()
    {
        const QByteArray path = m_folder.writePng("caf\xe9 \xff%41#?\n.png");
        QCOMPARE(load(path, 64).state, Thumbnail::Loaded);
        QCOMPARE(PictureFile::pictureType(path), QStringLiteral("image/png"));
        QCOMPARE(PictureFile::displayName(path), QStringLiteral("caf\ufffd \ufffd%41#?\n.png"));
    }

    void onlyListedFormatsAreDecoded()
    {
        const QByteArray mng("\x8aMNG\r\n\x1a\n\0\0\0\x1cMHDR", 16);
        for (const char* const name : {"a.bmp", "a.png", "a.mng", "a.svg", "a.ico", "a.xpm"})
            QVERIFY2(imagecontent::format(mng, name).isEmpty(), name);
        QCOMPARE(imagecontent::format(QByteArray("\0\0\2\0", 4), "a.tga"), QByteArray("tga"));
        QVERIFY(imagecontent::format("icns\0\0\0", "a.ico").isEmpty());
        QCOMPARE(load(m_folder.write("a.bmp", mng), 64).state, Thumbnail::Unreadable);
        const QByteArray plain = fileBytes(m_folder.writePng("plain.png"));
        QCOMPARE(load(m_folder.write("png.jpg", plain), 64).state, Thumbnail::Loaded);
    }

    void drawingsOpenNoFile()
    {
        const QByteArray pipe = m_folder.path("pipe");
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        for (const QByteArray& named : {pipe, m_folder.writePng("named.png")}) {
            const QByteArray drawing =
                "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='64' "
                "height='64'><rect width='64' height='64' fill='red'/><image width='64' height='64' xlink:href='" +
                named + "'/><text y='40'>Text</text></svg>";
            const Thumbnail thumbnail = load(m_folder.write("named.svg", drawing), 64);
            QCOMPARE(thumbnail.state, Thumbnail::Loaded);
            QCOMPARE(thumbnail.image.pixelColor(60, 10), QColor(Qt::red));
        }
        const Thumbnail drawn = load(m_folder.write("text.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='64' "
                                                                "height='64'><text y='60' font-size='60' "
                                                                "font-family='none'>M</text></svg>"),
                                     64);
        QVERIFY2(qAlpha(drawn.image.pixel(8, 40)) > 0, "letters are drawn");
    }

    void picturesWithoutEndFailAlone()
    {
        QByteArray nested = "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                            "width='900' height='900'><g id='a0'><circle r='300' cx='400' cy='400'/></g>";
        for (int level = 1; level <= 20; ++level) {
            const QByteArray use = "<use xlink:href='#a" + QByteArray::number(level - 1) + "' x='1'/>";
            nested += "<g id='a" + QByteArray::number(level) + "'>" + use.repeated(200) + "</g>";
        }
        ReaderProcess::Settings settings = ThumbnailLoader::defaultSettings();
        settings.fileLimit = std::chrono::seconds(1);
        ThumbnailLoader loader(nullptr, settings);
        QSignalSpy loaded(&loader, &ThumbnailLoader::thumbnailLoaded);
        loader.setWanted({{1, m_folder.write("nested.svg", nested + "</svg>")}, {2, m_folder.writePng("a.png")}}, 64);
        QTRY_COMPARE_WITH_TIMEOUT(loaded.size(), 2, 60000);
        for (const QList<QVariant>& call : loaded)
            QCOMPARE(call.at(2).value<Thumbnail>().state, call.at(0) == 1 ? Thumbnail::Unreadable : Thumbnail::Loaded);

        // Whoever closes the window does not wait for such a picture: this test ends by its limit of time otherwise.
        ThumbnailLoader patient(nullptr, [] {
            ReaderProcess::Settings longer = ThumbnailLoader::defaultSettings();
            longer.fileLimit = std::chrono::hours(1);
            return longer;
        }());
        QSignalSpy next(&patient, &ThumbnailLoader::thumbnailLoaded);
        patient.setWanted({{1, m_folder.path("nested.svg")}, {2, m_folder.path("a.png")}}, 64);
        QTRY_COMPARE_WITH_TIMEOUT(next.size(), 1, 60000);
    }

    void vastPicturesAreNotDecoded()
    {
        QImage image(16000, 16000, QImage::Format_Mono);
        image.fill(0);
        const QByteArray path = m_folder.path("vast.png");
        QVERIFY(image.save(QFile::decodeName(path)));
        QCOMPARE(load(path, 64).state, Thumbnail::Unreadable);
    }

    void onlyTheLatestWishIsLoaded()
    {
        QVector<ThumbnailRequest> first;
        for (int i = 1; i <= 100; ++i)
            first.append({i, m_folder.writePng("first" + QByteArray::number(i) + ".png")});
        const QByteArray last = m_folder.writePng("last.png");
        ThumbnailLoader loader;
        QSignalSpy loaded(&loader, &ThumbnailLoader::thumbnailLoaded);

        loader.setWanted(first, 64);
        loader.setWanted({{1000, last}}, 64);
        const auto hasLoaded = [&loaded](qint64 id) {
            return std::any_of(loaded.begin(), loaded.end(),
                               [id](const QList<QVariant>& call) { return call.at(0) == id; });
        };
        QTRY_VERIFY(hasLoaded(1000));
        QVERIFY(loaded.size() < first.size());
        QVERIFY(!hasLoaded(100));
    }

    void onlyPicturesAreOpenedByOtherPrograms()
    {
        QCOMPARE(PictureFile::pictureType("/a/plain.PNG"), QStringLiteral("image/png"));
        for (const char* const name : {"/a/starter.desktop", "/a/plain.png.sh", "/a/png", "/a.png/page.html"})
            QVERIFY2(PictureFile::pictureType(name).isEmpty(), name);
    }

    void noBrowserOpensDrawings()
    {
        // Types that no program of this system has a say in.
        const auto program = [this](const QByteArray& name, const QByteArray& lines) {
            m_folder.write("applications/" + name + ".desktop",
                           "[Desktop Entry]\nType=Application\nName=Some\nExec=/bin/cp %f " + m_folder.path() + '/' +
                               name + '\n' + lines);
        };
        QVERIFY(QDir().mkpath(QFile::decodeName(m_folder.path("applications"))));
        program("browser", "Categories=Network;WebBrowser;\n");
        program("viewer", "Categories=Graphics;Viewer;\n");
        m_folder.write("applications/mimeinfo.cache",
                       "[MIME Cache]\nimage/made=browser.desktop;\nimage/svg-one=browser.desktop;\n"
                       "image/svg-two=browser.desktop;viewer.desktop;\n");
        m_folder.write("mimeapps.list", "[Default Applications]\nimage/svg-two=browser.desktop\n");

        QCOMPARE(PictureOpener::programFor("image/made"), QByteArray("browser.desktop"));
        QCOMPARE(PictureOpener::programFor("image/svg-one"), QByteArray());
        QCOMPARE(PictureOpener::programFor("image/svg-two"), QByteArray("viewer.desktop"));
        const QByteArray drawing = m_folder.write("caf\xe9 %41.svg", "<svg/>");
        QVERIFY(!PictureOpener::open(drawing, "image/svg-one"));
        QVERIFY(PictureOpener::open(drawing, "image/svg-two"));
        QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(QFile::decodeName(m_folder.path("viewer"))).size(), qint64(6), 60000);
    }

private:
    /// Null when there was no answer.
    [[nodiscard]] Thumbnail load(const QByteArray& path, int pixels, const Thumbnail::Source& known = {})
    {
        QSignalSpy loaded(&m_loader, &ThumbnailLoader::thumbnailLoaded);
        m_loader.setWanted({{1, path, known}}, pixels);
        return loaded.wait(60000) ? loaded.first().at(2).value<Thumbnail>() : Thumbnail();
    }

    PictureFolder m_folder;
    ThumbnailLoader m_loader;
};

READER_TEST_MAIN(TestThumbnail)
#include "tst_thumbnail.moc"
