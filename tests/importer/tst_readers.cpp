// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/readerpool.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QFile>
#include <QProcess>

#include <csignal>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A program on a system that lets no process confine itself.
class UnconfinedProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
        seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(seccomp), 0);
        seccomp_rule_add(filter, SCMP_ACT_ERRNO(EINVAL), SCMP_SYS(prctl), 1, SCMP_A0(SCMP_CMP_EQ, PR_SET_SECCOMP));
        seccomp_load(filter);
    }
};

QByteArray contentsOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 childOf(qint64 process)
{
    return contentsOf(QStringLiteral("/proc/%1/task/%1/children").arg(process)).trimmed().toLongLong();
}

bool isConfined(qint64 process)
{
    return contentsOf(QStringLiteral("/proc/%1/status").arg(process)).contains("Seccomp:\t2");
}

bool isAlive(qint64 process)
{
    const QByteArray status = contentsOf(QStringLiteral("/proc/%1/status").arg(process));
    return !status.isEmpty() && !status.contains("State:\tZ") && !status.contains("State:\tX");
}

}  // namespace

/// What a reader process may and may not do, whatever file it reads.
class TestReaders : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qunsetenv(harmfulReaderVariable); }

    void nothingCanBeReachedFromInside()
    {
        qputenv(harmfulReaderVariable, "1");
        QString all = QStringLiteral("can: ");
#if defined(__SANITIZE_ADDRESS__)
        all += QStringLiteral("memory ");
#endif
        QCOMPARE(read({picture("liberties.jpg")}).value(0).keywords, QStringList{all});
    }

    void onlyTheHarmfulFileFails()
    {
        qputenv(harmfulReaderVariable, "1");
        const QVector<QByteArray> paths = {picture("1.jpg"),     picture("endless.jpg"), picture("2.jpg"),
                                           picture("crash.jpg"), picture("babble.jpg"),  picture("3.jpg")};
        const QMap<int, MetadataAnswer> answers = read(paths);
        for (int index = 0; index < paths.size(); ++index) {
            const bool isFine = paths.at(index).endsWith("1.jpg") || index == 2 || index == 5;
            QVERIFY2(answers.value(index).keywords.size() == (isFine ? 1 : 0), paths.at(index));
            QVERIFY2(answers.value(index).error.isEmpty() == isFine, paths.at(index));
        }
    }

    /// As where the system has no room for another process.
    void filesOfReadersThatCannotBeRunAreReadByOthers()
    {
        const QByteArray program = m_folder.file("program");
        writeFile(program, "#!/bin/sh\nmkdir \"$0.runs\" 2>/dev/null && exec '" +
                               QFile::encodeName(QCoreApplication::applicationFilePath()) + "' \"$@\"\nexit 1\n");
        QCOMPARE(chmod(program.constData(), S_IRWXU), 0);
        QVector<QByteArray> paths;
        for (int i = 0; i < 40; ++i)
            paths.append(picture(QByteArray::number(i) + ".jpg"));
        ReaderPool::Settings settings;
        settings.program = QFile::decodeName(program);
        settings.processes = 3;
        const QMap<int, MetadataAnswer> answers = read(paths, settings);
        QCOMPARE(answers.size(), 40);
        for (const MetadataAnswer& answer : answers)
            QCOMPARE(answer.keywords, QStringList{"sea"});
    }

    void pipesAndFoldersAreNotOpened()
    {
        const QByteArray pipe = m_folder.file("pipe.jpg");
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        const QMap<int, MetadataAnswer> answers = read({pipe, m_folder.path(), m_folder.file("none.jpg")});
        QCOMPARE(answers.size(), 3);
        for (const MetadataAnswer& answer : answers)
            QVERIFY(!answer.error.isEmpty());
    }

    void largeFilesAreRead()
    {
        const QByteArray path = picture("large.jpg");
        QCOMPARE(truncate(path.constData(), qint64(3) << 30), 0);
        const MetadataAnswer answer = read({path}).value(0);
        QCOMPARE(answer.error, QString());
        QCOMPARE(answer.keywords, QStringList{"sea"});
    }

    void nothingIsReadWithoutConfinement()
    {
        picture("sub.jpg");
        picture("other.jpg");
        UnconfinedProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {commandArgument, "--import", QFile::decodeName(m_folder.path()), "--library",
                       QFile::decodeName(m_folder.file("unread.vellum"))});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 1);
        QCOMPARE(process.readAllStandardError().count("cannot confine"), 1);
    }

    void readersEndWithTheirProgram()
    {
        qputenv(harmfulReaderVariable, "1");
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {readArgument, QFile::decodeName(picture("hang.jpg"))});
        QVERIFY(program.waitForStarted());
        qint64 reader = 0;
        QTRY_VERIFY_WITH_TIMEOUT((reader = childOf(program.processId())) > 0 && isConfined(reader), 60000);
        program.kill();
        QVERIFY(program.waitForFinished());
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(reader), 60000);
    }

private:
    /// A picture with the keyword "sea".
    QByteArray picture(const QByteArray& name) const
    {
        writePicture(m_folder.file(name), {QStringLiteral("sea")});
        return m_folder.file(name);
    }

    /// The answers by index.
    static QMap<int, MetadataAnswer> read(const QVector<QByteArray>& paths, const ReaderPool::Settings& settings = {})
    {
        QMap<int, MetadataAnswer> answers;
        ReaderPool pool(settings);
        connect(&pool, &ReaderPool::answered,
                [&answers](int index, const MetadataAnswer& answer) { answers.insert(index, answer); });
        pool.read(paths);
        (void)QTest::qWaitFor([&] { return answers.size() == paths.size(); }, 60000);
        return answers;
    }

    TestFolder m_folder;
};

READER_TEST_MAIN(TestReaders)
#include "tst_readers.moc"
