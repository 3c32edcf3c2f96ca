// SPDX-License-Identifier: MIT
#pragma once

#include "bench/library/libraryside.h"
#include "bench/library/sqliteprogram.h"

namespace bench {

/// The bare SQL statements, run by the program sqlite3: what the file itself costs.
class SqliteSide : public LibrarySide
{
public:
    SqliteSide(const QString& file, Clock clock);

    double open() override;
    double carryOut(const MeasuredCommand& command) override;
    double import(const LibraryContent& content) override;

private:
    double timeOf(const QByteArray& sql);

    SqliteProgram m_program;
    Clock m_clock;
};

}  // namespace bench
