// SPDX-License-Identifier: MIT
#include "host/app/outputfile.h"
#include "tests/app/picturefolder.h"

#include <QFile>
#include <QImage>
#include <QLibraryInfo>
#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Outcome
{
    int status = -1;
    QString errors;  ///< What was written to stderr.
};

}  // namespace

/// The program as a user starts it, without a display.
class TestVellum : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_pictures = std::make_unique<PictureFolder>();
        m_home = std::make_unique<PictureFolder>();
        m_pictures->writePng("a.png");
        writeSidecar(m_pictures->path("a.png.xmp"), {"Amber", "Zebra"});
        m_pictures->writePng("b\xff.png");
        writeSidecar(m_pictures->path("b\xff.png.xmp"), {"Zebra"});
    }

    void screenshotShowsTheLibrary()
    {
        const QImage first = screenshot({});
        QCOMPARE(first.size(), QSize(1100, 700));
        QCOMPARE(screenshot({}), first);
        QVERIFY2(QFile::exists(home("XDG_DATA_HOME/vellum/libraries")), "the library has its place");
        QVERIFY2(!QFile::exists(home("XDG_CONFIG_HOME/vellum")), "a screenshot leaves the settings alone");

        writeSidecar(m_pictures->path("b\xff.png.xmp"), {"Zebra", "Quince"});
        QVERIFY2(screenshot({}) != first, "the next start finds what has changed");
    }

    void screenshotFollowsItsOptions()
    {
        const QStringList size = {QStringLiteral("--size"), QStringLiteral("900x600")};
        const QImage plain = screenshot(size);
        QCOMPARE(plain.size(), QSize(900, 600));
        const QImage sharp = screenshot(size + QStringList{QStringLiteral("--scale"), QStringLiteral("1.5")});
        QCOMPARE(sharp.size(), QSize(1350, 900));
        const QImage searched = screenshot(size + QStringList{QStringLiteral("--search"), QStringLiteral("amb")});
        const QImage categories =
            screenshot(size + QStringList{QStringLiteral("--page"), QStringLiteral("categories")});
        const QImage favorites = screenshot(size + QStringList{QStringLiteral("--page"), QStringLiteral("favorites")});
        QVERIFY(!searched.isNull() && !categories.isNull() && !favorites.isNull());
        QVERIFY(searched != plain && categories != plain && favorites != plain && favorites != categories);
    }

    void outputGoesWhereItIsSent()
    {
        const QByteArray pipe = m_home->path("pipe");
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        QVERIFY2(!writeOutputFile(pipe, "x").isEmpty(), "nobody reads it");
        const int reader = open(pipe.constData(), O_RDONLY | O_NONBLOCK);
        QCOMPARE(writeOutputFile(pipe, "x"), QString());
        char byte = 0;
        QCOMPARE(read(reader, &byte, 1), ssize_t(1));
        close(reader);

        const QByteArray file = m_home->path("b\xff.png");
        QCOMPARE(symlink(file.constData(), m_home->path("link").constData()), 0);
        QCOMPARE(writeOutputFile(file, "one"), QString());
        QCOMPARE(chmod(file.constData(), 0604), 0);
        QCOMPARE(writeOutputFile(m_home->path("link"), "two"), QString());
        QCOMPARE(fileBytes(file), QByteArray("two"));
        struct stat status = {};
        QCOMPARE(lstat(file.constData(), &status), 0);
        QCOMPARE(status.st_mode, mode_t(S_IFREG | 0604));
        QVERIFY(!writeOutputFile(m_home->path(), "x").isEmpty());
    }

    void misuseIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("complaint");

        // FOLDER and HOME stand for the folders of the test.
        const auto row = [](const char* name, const QByteArray& arguments, int status, const char* complaint) {
            QTest::newRow(name) << QString::fromLatin1(arguments).split(' ', Qt::SkipEmptyParts) << status
                                << QString::fromLatin1(complaint);
        };
        row("nothing to open", "", 2, "vellum FOLDER");
        row("no such folder", "/nowhere/at/all", 2, "There is no folder /nowhere/at/all");
        row("no display", "FOLDER", 1, "There is no display");
        row("no such library", "--library HOME/none.vellum", 2, "There is no library");
        row("list of no library", "--list tags --library HOME/none.vellum", 2, "There is no library");
        row("list of a picture", "--list tags --library FOLDER/a.png", 1, "The file is no library");
        row("a picture for a library", "--library FOLDER/a.png --screenshot HOME/x.png", 1,
            "vellum: The file is no library");
        row("a folder for a library", "--library FOLDER --screenshot HOME/x.png", 1,
            "vellum: The library cannot be opened: it is a folder.");
        row("import of no folder", "--import /nowhere --library HOME/none.vellum", 2, "/nowhere");
        row("unknown page", "FOLDER --screenshot HOME/x.png --page none", 2, "--page takes");
        row("bad size", "FOLDER --screenshot HOME/x.png --size 10", 2, "--size takes");
        row("unknown option", "--colour", 2, "Unknown option 'colour'. Try \"vellum --help\".");
        row("two commands", "--import FOLDER --list tags", 2, "Only one of --import");
        row("list of which library", "--list tags", 2, "--list needs --library");
        row("window option of a command", "--import FOLDER --scale 2", 2, "goes with a window only");
        row("help", "--help", 0, "");
        row("vast size", "FOLDER --screenshot HOME/x.png --size 99999x99999", 2, "--size takes");
        row("endless scale", "FOLDER --screenshot HOME/x.png --scale nan", 2, "--scale takes");
        row("bad scale", "FOLDER --screenshot HOME/x.png --scale 0", 2, "--scale takes");
        row("unwritable picture", "FOLDER --screenshot /nowhere/x.png", 1, "The picture cannot be written");
        row("no such plug-in", "FOLDER --screenshot HOME/x.png --plugin /nowhere.so", 1,
            "/nowhere.so is not a plug-in");
        const QByteArray other =
            QLibraryInfo::location(QLibraryInfo::PluginsPath).toUtf8() + "/imageformats/libqsvg.so";
        row("another plug-in", "FOLDER --screenshot HOME/x.png --plugin " + other, 1, "is not a tag manager plug-in");
        row("a picture for a plug-in", "FOLDER --screenshot HOME/x.png --plugin FOLDER/a.png", 1, "is not a plug-in");
    }

    void misuseIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, complaint);
        arguments.replaceInStrings(QStringLiteral("FOLDER"), QFile::decodeName(m_pictures->path()));
        arguments.replaceInStrings(QStringLiteral("HOME"), QFile::decodeName(m_home->path()));

        const Outcome outcome = run(arguments);
        QVERIFY2(outcome.status == status, qPrintable(outcome.errors));
        QVERIFY2(outcome.errors.contains(complaint), qPrintable(outcome.errors));
        QVERIFY(!QFile::exists(home("x.png")) && !QFile::exists(home("none.vellum")));
        QVERIFY(!QImage(QFile::decodeName(m_pictures->path("a.png"))).isNull());
    }

    void outputThatCannotBeWrittenIsAFailure()
    {
        const QString folder = QFile::decodeName(m_pictures->path());
        const QString library = home("a.vellum");
        for (const QStringList& arguments :
             {QStringList{"--version"}, QStringList{"--help"}, QStringList{"--import", folder, "--library", library},
              QStringList{"--list", "tags", "--library", library}}) {
            const Outcome outcome = run(arguments, QStringLiteral("/dev/full"));
            QVERIFY2(outcome.status == 1, qPrintable(arguments.first()));
            QVERIFY2(outcome.errors.startsWith(QLatin1String("vellum: ")), qPrintable(arguments.first()));
        }
    }

private:
    /// \a output: the file that takes what is written to stdout.
    [[nodiscard]] Outcome run(const QStringList& arguments, const QString& output = QProcess::nullDevice()) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"})
            environment.remove(QString::fromLatin1(name));
        for (const char* const name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            environment.insert(QString::fromLatin1(name), home(name));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setStandardOutputFile(output);
        process.start(QStringLiteral(VELLUM_FILE), arguments);
        if (!process.waitForFinished(120'000))
            return {};
        const bool ended = process.exitStatus() == QProcess::NormalExit;
        return {ended ? process.exitCode() : -1, QString::fromLocal8Bit(process.readAllStandardError())};
    }

    [[nodiscard]] QString home(const char* name) const { return QFile::decodeName(m_home->path(name)); }

    /// The picture of the library with these options.
    [[nodiscard]] QImage screenshot(const QStringList& options) const
    {
        const QString picture = home("picture.png");
        const QString folder = QFile::decodeName(m_pictures->path());
        const Outcome outcome = run(QStringList{folder, QStringLiteral("--screenshot"), picture} + options);
        if (outcome.status != 0)
            qWarning("%s", qPrintable(outcome.errors));
        return outcome.status == 0 ? QImage(picture) : QImage();
    }

    std::unique_ptr<PictureFolder> m_pictures;
    std::unique_ptr<PictureFolder> m_home;
};

QTEST_GUILESS_MAIN(TestVellum)
#include "tst_vellum.moc"
