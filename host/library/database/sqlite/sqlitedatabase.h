// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/librarydatabase.h"
#include "host/library/database/sqlite/heldfile.h"

/// One connection to an SQLite file. Foreign keys are on, and every commit reaches the disk before it returns.
class SqliteDatabase final : public LibraryDatabase
{
public:
    enum class Access
    {
        Frozen,  ///< For a file that nobody changes meanwhile: without locks and without its log.
        ReadOnly,
        ReadWrite
    };

    /// Opens the existing file \a path, an absolute path. Waits up to 5 seconds for a lock while it reads.
    SqliteDatabase(const QString& path, Access access);
    ~SqliteDatabase() override;

    [[nodiscard]] Access access() const { return m_access; }
    /// Writes what was committed into the file itself and empties the log. False when somebody is in the way.
    bool checkpoint();

    void beginWriting(const std::function<bool()>& mayWait) override;
    [[nodiscard]] qint64 foreignVersion() override;
    void requireInPlace() override;
    [[nodiscard]] bool hasFileChanged() override;
    void acceptFile() override;
    void tidy() override;
    [[nodiscard]] bool isTidy() const override;
    [[nodiscard]] LibraryError errorOf(const QSqlError& error) const override;

protected:
    void repairFiles() override;

private:
    void configure();
    void giveUpLog();

    QString m_path;
    Access m_access;
    HeldFile m_file;  ///< Given up after the connection.
    bool m_hasWritten = false;
    HeldFile::Stamp m_accepted;
    QByteArray m_sharedMemory;  ///< The file of the memory that programs share.
    qint64 m_sharedSize = 0;    ///< Of that; bytes.
};
