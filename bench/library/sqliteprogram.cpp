// SPDX-License-Identifier: MIT
#include "bench/library/sqliteprogram.h"

#include <ctime>
#include <stdexcept>

namespace {

const char settings[] = ".bail on\n.output /dev/null\nPRAGMA foreign_keys = ON;\nPRAGMA synchronous = FULL;\n";
/// Makes the program say that it has come this far.
const char askForWord[] = "\n.output\n.print done\n.output /dev/null\n";
const char word[] = "done\n";

}  // namespace

bench::SqliteProgram::SqliteProgram(const QString& file)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral("sqlite3"), {QStringLiteral("-batch"), file});
    if (!m_process.waitForStarted())
        throw std::runtime_error("The program sqlite3 cannot be run.");
    run(settings);
}

bench::SqliteProgram::~SqliteProgram()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void bench::SqliteProgram::run(const QByteArray& sql)
{
    m_process.write(sql + askForWord);
    QByteArray answer;
    while (!answer.endsWith(word)) {
        if (!m_process.waitForReadyRead(-1))
            throw std::runtime_error("The program sqlite3 did not take the SQL.");
        answer += m_process.readAllStandardOutput();
    }
}

double bench::SqliteProgram::now(Clock clock) const
{
    clockid_t id = CLOCK_MONOTONIC;
    if (clock == Clock::Processor)
        clock_getcpuclockid(static_cast<pid_t>(m_process.processId()), &id);
    return milliseconds(id);
}

QByteArray bench::SqliteProgram::quoted(const QString& name)
{
    return '\'' + name.toUtf8().replace('\'', "''") + '\'';
}
