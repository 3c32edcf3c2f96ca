// SPDX-License-Identifier: MIT
#include "host/importer/folderlibrary.h"
#include "host/library/library.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <algorithm>
#include <csignal>
#include <sys/stat.h>

/// The commands as a person runs them: in a process of their own.
class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("XDG_DATA_HOME", path("data"));
        QVERIFY(QDir().mkpath(file("pictures")));
        writePicture(path("pictures/a.jpg"), {QStringLiteral("sea"), QStringLiteral("one\ttwo\nthree\\")});
        writePicture(path("pictures/b\xff.jpg"), {QStringLiteral("sea"), QStringLiteral("山")});
    }

    void cleanup() { qunsetenv(harmfulReaderVariable); }

    void importPrintsTotals()
    {
        for (int i = 0; i < 2; ++i) {
            const Result result = import("pictures", "a.db");
            QCOMPARE(result.errors, QByteArray());
            QCOMPARE(result.output, totals("files: 2, tags: 3, links: 4", 0));
            QCOMPARE(result.status, 0);
        }
    }

    void badAndVanishedFilesAreCounted()
    {
        for (const char* const folder : {"bad", "bad/disk"})
            QVERIFY(QDir().mkpath(file(folder)));
        for (const char* const picture : {"bad/here.jpg", "bad/gone.jpg", "bad/disk/away.jpg"})
            writePicture(path(picture), {QStringLiteral("sea")});
        writeFile(path("bad/\033[31m.jpg"), "no picture");
        const Result first = import("bad", "bad.db");
        QVERIFY2(first.errors.contains("/bad/\\x1b[31m.jpg: "), first.errors);
        QCOMPARE(first.output, totals("files: 3, tags: 1, links: 3", 1));
        QCOMPARE(first.status, 0);

        QVERIFY(QFile::remove(file("bad/gone.jpg")) && QFile::remove(file("bad/disk/away.jpg")));
        const Result again = import("bad", "bad.db");
        QCOMPARE(again.errors, QByteArray());
        QCOMPARE(again.output, totals("files: 3, tags: 1, links: 3", 0, 1, 1, 1));
        const QByteArray after = totals("files: 2, tags: 1, links: 2", 0, 1, 0, 1);
        QCOMPARE(import("bad", "bad.db", {QStringLiteral("--forget-missing")}).output, after);
        QCOMPARE(import("bad", "bad.db").output, after);

        // Permissions may have been the reason.
        QVERIFY(QFile::setPermissions(file("bad/\033[31m.jpg"), QFile::ReadOwner));
        QCOMPARE(import("bad", "bad.db").output, totals("files: 2, tags: 1, links: 2", 1, 0, 0, 1));
        const Result reread = import("bad", "bad.db", {QStringLiteral("--reread")});
        QCOMPARE(reread.output, totals("files: 2, tags: 1, links: 2", 1, 0, 0, 1));
        QVERIFY(reread.errors.contains("31m.jpg: "));
    }

    void importIsInterruptedWithoutHarm()
    {
        QVERIFY(QDir().mkpath(file("long")));
        writePicture(path("long/a.jpg"), {QStringLiteral("tag")});
        writeFile(path("long/b.jpg"), "no picture");
        writePicture(path("long/c hang.jpg"), {QStringLiteral("tag")});
        for (const int signal : {SIGINT, SIGTERM}) {
            const QByteArray library = "interrupted" + QByteArray::number(signal) + ".db";
            qputenv(harmfulReaderVariable, "1");
            QProcess process;
            start(process, {QStringLiteral("--import"), file("long"), QStringLiteral("--library"), file(library)});
            // The bad file is named once the files before it are read; the next one is never answered.
            process.setReadChannel(QProcess::StandardError);
            QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), 30000);
            kill(pid_t(process.processId()), signal);
            QVERIFY(process.waitForFinished(30000));
            QCOMPARE(process.exitCode(), 130);
            QCOMPARE(process.readAllStandardOutput(), totals("files: 1, tags: 1, links: 1", 1));
            qunsetenv(harmfulReaderVariable);
            QCOMPARE(import("long", library).output, totals("files: 2, tags: 1, links: 2", 0, 1));
        }
    }

    void importThatWaitsForALockIsInterrupted()
    {
        QCOMPARE(import("pictures", "locked.db").status, 0);
        QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
        other.setDatabaseName(file("locked.db"));
        QVERIFY(other.open());
        QSqlQuery lock(QStringLiteral("BEGIN IMMEDIATE"), other);
        QVERIFY(lock.isActive());
        QVERIFY(QDir().mkpath(file("unseen")));
        QProcess process;
        start(process, {QStringLiteral("--import"), file("unseen"), QStringLiteral("--library"), file("locked.db")});
        QVERIFY(process.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(catchesInterrupts(process.processId()), 30000);
        kill(pid_t(process.processId()), SIGINT);
        QVERIFY(process.waitForFinished(30000));
        QCOMPARE(process.exitCode(), 130);
        QCOMPARE(process.readAllStandardOutput(), totals("files: 2, tags: 3, links: 4", 0));
    }

    void listsTagsAndFiles()
    {
        const std::unique_ptr<Library> openMeanwhile = Library::open(file("a.db"));
        QVERIFY(openMeanwhile);
        const Result tags = list("tags");
        QCOMPARE(tags.status, 0);
        QList<QByteArray> names;
        for (const QByteArray& line : tags.output.split('\n').mid(0, 3)) {
            const QList<QByteArray> fields = line.split('\t');
            QCOMPARE(fields.size(), 4);
            names.append(fields.at(1) + '=' + fields.at(2));
        }
        std::sort(names.begin(), names.end());
        QCOMPARE(names, (QList<QByteArray>{"one\\ttwo\\nthree\\\\=1", "sea=2", "\xe5\xb1\xb1=1"}));
        const QList<QByteArray> files = list("files").output.split('\n');
        QCOMPARE(files.size(), 3);
        QVERIFY(files.at(1).startsWith(path("pictures/") + "b\\xff.jpg\t"));
        QCOMPARE(files.at(1).split('\t').size(), 4);
        QVERIFY(list("categories").output.startsWith("1\t"));
    }

    void listsAsJson()
    {
        const QStringList json = {QStringLiteral("--json")};
        const QJsonArray tags = QJsonDocument::fromJson(list("tags", json).output).array();
        QCOMPARE(tags.size(), 3);
        QCOMPARE(tags.first().toObject().keys(), (QStringList{QStringLiteral("colorIndex"), QStringLiteral("fileCount"),
                                                              QStringLiteral("id"), QStringLiteral("name")}));
        const QJsonArray files = QJsonDocument::fromJson(list("files", json).output).array();
        QCOMPARE(files.size(), 2);
        const QJsonObject plain = files.first().toObject();
        QVERIFY(!plain.contains(QLatin1String("pathBase64")));
        QVERIFY(plain.value(QLatin1String("tags")).toArray().contains(QStringLiteral("one\ttwo\nthree\\")));
        const QString exact = files.last().toObject().value(QLatin1String("pathBase64")).toString();
        QVERIFY(QByteArray::fromBase64(exact.toLatin1()).endsWith("b\xff.jpg"));
        QVERIFY(QJsonDocument::fromJson(list("categories", json).output).isArray());
    }

    void defaultLibraryIsThePersonsOwn()
    {
        using folderlibrary::defaultFile;
        const QByteArray library = defaultFile(path("pictures"));
        QVERIFY(library.startsWith(path("data") + '/'));
        QCOMPARE(defaultFile(path("pictures/../pictures/")), library);
        QVERIFY(defaultFile(path("bad")) != library);
        struct stat status = {};
        QCOMPARE(stat(library.left(library.lastIndexOf('/')).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, mode_t(0700));
        QCOMPARE(run({QStringLiteral("--import"), file("pictures")}).status, 0);
        QVERIFY(QFile::exists(QFile::decodeName(library)));
    }

    void aMovedFolderKeepsItsLibrary()
    {
        QVERIFY(QDir().mkpath(file("old/sub")));
        for (const char* const picture : {"old/a.jpg", "old/sub/b.jpg"})
            writePicture(path(picture), {QStringLiteral("sea")});
        const auto imported = [this](const char* folder, const QStringList& more = {}) {
            return run(QStringList{QStringLiteral("--import"), file(folder)} + more);
        };
        const QByteArray whole = totals("files: 2, tags: 1, links: 2", 0);
        QCOMPARE(imported("old").output, whole);
        QVERIFY(QDir().rename(file("old"), file("new")));
        const Result asked = imported("new");
        QCOMPARE(asked.status, 2);
        QVERIFY2(asked.errors.contains("--relocate yes"), asked.errors);
        const QStringList yes = {QStringLiteral("--relocate"), QStringLiteral("yes")};
        QCOMPARE(imported("new", yes).output, whole);
        QCOMPARE(imported("new").output, whole);
        const QByteArray files = run({QStringLiteral("--list"), QStringLiteral("files"), file("new")}).output;
        QCOMPARE(files.count(path("new/")), 2);

        // A person may name the folder that the moved one was put into, or one in it.
        QVERIFY(QDir().mkpath(file("around it")) && QDir().rename(file("new"), file("around it/new")));
        QCOMPARE(imported("around it/new", yes).output, whole);
        QVERIFY(QDir().rename(file("around it"), file("elsewhere")));
        QCOMPARE(imported("elsewhere/new/sub").status, 2);
        QCOMPARE(imported("elsewhere/new/sub", yes).output, whole);
        QVERIFY(QDir().rename(file("elsewhere/new"), file("new")) && QDir().rmdir(file("elsewhere")));
        QCOMPARE(imported("new", yes).output, whole);

        // A copy is no move, and what a person calls another folder is another one.
        QVERIFY(QDir().mkpath(file("old")) && QFile::copy(file("new/a.jpg"), file("old/a.jpg")));
        const QByteArray copy = totals("files: 1, tags: 1, links: 1", 0);
        QCOMPARE(imported("old").output, copy);
        QVERIFY(QDir().rename(file("new"), file("newer")));
        QCOMPARE(imported("newer", {QStringLiteral("--relocate"), QStringLiteral("no")}).output, whole);
        QCOMPARE(imported("old").output, copy);
        QCOMPARE(QDir(file("data/vellum/libraries")).entryList({QStringLiteral("*.vellum")}).size(), 4);
    }

    void aMovedLibraryKeepsItsFolders()
    {
        for (const char* const folder : {"first", "copy"}) {
            QVERIFY(QDir().mkpath(file(folder)));
            writePicture(path(QByteArray(folder) + "/a.jpg"), {QStringLiteral("sea")});
        }
        QCOMPARE(import("first", "before.db").status, 0);
        QVERIFY(QFile::rename(file("before.db"), file("after.db")));
        QCOMPARE(folderlibrary::foldersOf(path("after.db")), QVector<QByteArray>{path("first")});
        QCOMPARE(import("copy", "after.db").output, totals("files: 2, tags: 1, links: 2", 0));
    }

    void onlyFoldersThatAPersonNamedAreWalked()
    {
        for (const char* const folder : {"around/pics/a", "around/docs/b", "around/other"}) {
            QVERIFY(QDir().mkpath(file(folder)));
            writePicture(path(QByteArray(folder) + "/1.jpg"), {QStringLiteral("sea")});
        }
        const QString stranger = QFile::decodeName(folderlibrary::defaultFile(path("stranger")));
        QVERIFY(makeVersion1(stranger, {path("around/pics/a/1.jpg")}));
        QVERIFY(makeVersion1(file("old.db"), {path("around/pics/a/1.jpg"), path("around/docs/b/1.jpg")}));
        QString error;
        QVERIFY2(Library::open(file("old.db"), &error), qPrintable(error));
        QCOMPARE(folderlibrary::foldersOf(path("old.db")), QVector<QByteArray>());
        for (const char* const folder : {"around/pics/a", "around/docs/b"}) {
            QVERIFY(import(folder, "old.db").output.startsWith("files: 2, "));
            QVERIFY(folderlibrary::foldersOf(path("old.db")).contains(path(folder)));
        }
        QVERIFY(import("around", "old.db").output.startsWith("files: 3, "));
        QCOMPARE(folderlibrary::foldersOf(path("old.db")), QVector<QByteArray>{path("around")});
        // To be asked about costs a library nothing.
        QVERIFY(!folderlibrary::movedRoot(path("around/pics/a")));
        QVERIFY(!QFile::exists(stranger + QStringLiteral(".v1.bak")));
        QVERIFY(QFile::remove(stranger));
    }

    void manyImportsAtOnce()
    {
        constexpr int imports = 10;
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int i = 0; i < imports; ++i) {
            const QByteArray folder = "at once " + QByteArray::number(i);
            QVERIFY(QDir().mkpath(file(folder)));
            writePicture(path(folder + "/a.jpg"), {QStringLiteral("shared"), QString::number(i)});
            processes.push_back(std::make_unique<QProcess>());
            start(*processes.back(),
                  {QStringLiteral("--import"), file(folder), QStringLiteral("--library"), file("at once.db")});
        }
        for (const auto& process : processes) {
            QVERIFY(process->waitForFinished(120000));
            QVERIFY2(process->exitCode() == 0, process->readAllStandardError());
        }
        QVERIFY(import("at once 0", "at once.db").output.startsWith("files: 10, tags: 11, links: 20,"));
    }

private:
    struct Result
    {
        int status = -1;
        QByteArray output;
        QByteArray errors;
    };

    static void start(QProcess& process, const QStringList& arguments)
    {
        process.start(QCoreApplication::applicationFilePath(), QStringList{QLatin1String(commandArgument)} + arguments);
    }

    static Result run(const QStringList& arguments)
    {
        QProcess process;
        start(process, arguments);
        process.waitForFinished(60000);
        if (process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    [[nodiscard]] Result import(const QByteArray& folder, const QByteArray& library, const QStringList& more = {}) const
    {
        return run(QStringList{QStringLiteral("--import"), file(folder), QStringLiteral("--library"), file(library)} +
                   more);
    }
    static QByteArray totals(const char* library, int skipped, int unreadable = 0, int missing = 0, int away = 0)
    {
        const auto part = [](const char* name, int number) -> QByteArray {
            return QByteArray(", ") + name + ": " + QByteArray::number(number);
        };
        return library + part("skipped", skipped) + part("unreadable", unreadable) + part("missing", missing) +
               part("away", away) + '\n';
    }
    static bool catchesInterrupts(qint64 process)
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(process));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QByteArray lines = status.readAll();
        const QByteArray caught = lines.mid(lines.indexOf("SigCgt:") + 7).split('\n').constFirst().trimmed();
        return (caught.toULongLong(nullptr, 16) >> (SIGINT - 1) & 1U) != 0;
    }
    static bool makeVersion1(const QString& library, const QList<QByteArray>& pictures)
    {
        QFile script(VERSION1_SCRIPT);
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), library);
        database.setDatabaseName(library);
        if (!script.open(QIODevice::ReadOnly) || !database.open())
            return false;
        QByteArray sql = script.readAll();
        sql = sql.mid(sql.indexOf("PRAGMA")) + "DELETE FROM file_tags;\nDELETE FROM files;\n";
        for (const QByteArray& picture : pictures)
            sql += "INSERT INTO files VALUES (NULL, X'" + picture.toHex() + "', 1, 1, NULL, NULL);\n";
        const QStringList statements = QString::fromUtf8(sql).split(QStringLiteral(";\n"), Qt::SkipEmptyParts);
        const bool isMade = std::all_of(statements.begin(), statements.end(),
                                        [&database](const QString& s) { return QSqlQuery(database).exec(s); });
        database.close();
        return isMade;
    }
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return m_folder.file(name); }
    [[nodiscard]] QString file(const QByteArray& name) const { return QFile::decodeName(path(name)); }

    Result list(const char* what, const QStringList& more = {}) const
    {
        return run(
            QStringList{QStringLiteral("--library"), file("a.db"), QStringLiteral("--list"), QLatin1String(what)} +
            more);
    }

    TestFolder m_folder;
};

READER_TEST_MAIN(TestCommands)
#include "tst_commands.moc"
