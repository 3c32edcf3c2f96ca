// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// A disk that fails below SQLite: the system calls of its files are led through this object while it lives. Everything
/// else in the process keeps its disk. One object at a time; the fault may be set from any thread.
class DiskFault
{
public:
    enum class Kind
    {
        None,
        Full,           ///< Writing says that there is no space left.
        WriteError,     ///< Writing fails.
        ShortWrite,     ///< Half of it is written, then there is no space left.
        Kill,           ///< Writing kills the process.
        LostWrite,      ///< Writing claims to succeed, and nothing reaches the disk.
        ReadError,      ///< Reading fails.
        ShortRead,      ///< Reading ends early.
        ReadOnly,       ///< Opening a database file for writing is refused; not so the log files beside it.
        ReadOnlyFolder  ///< Opening any file for writing is refused.
    };

    DiskFault();
    ~DiskFault();

    /// From the call with the number \a after (from 0) on, every call of the kind fails, until the fault is set anew.
    void set(Kind kind, qint64 after = 0);
    void clear() { set(Kind::None); }
    /// Whether a call failed since the fault was set.
    [[nodiscard]] bool struck() const;

private:
    Q_DISABLE_COPY(DiskFault)
};
