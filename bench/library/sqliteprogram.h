// SPDX-License-Identifier: MIT
#pragma once

#include "bench/stopwatch.h"

#include <QByteArray>
#include <QProcess>
#include <QString>

namespace bench {

/// The program sqlite3, working on one file with the host's settings for safety, one batch of SQL after another.
/// Everything throws std::runtime_error when the program cannot be run or does not take the SQL.
class SqliteProgram
{
public:
    explicit SqliteProgram(const QString& file);
    ~SqliteProgram();

    /// Waits until all of it is carried out; rows are put into words and dropped.
    void run(const QByteArray& sql);
    /// Like bench::now(), but of that program.
    [[nodiscard]] double now(Clock clock) const;

    /// The name as a literal.
    [[nodiscard]] static QByteArray quoted(const QString& name);

private:
    QProcess m_process;
};

}  // namespace bench
