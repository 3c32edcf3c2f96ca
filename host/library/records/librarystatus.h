// SPDX-License-Identifier: MIT
#pragma once

/// How a request of the library ended, as IResponseInfo::status() gives it.
enum class LibraryStatus
{
    Done = 0,
    NameTaken = 1,
    NameEmpty = 2,
    UnknownId = 3,        ///< No such tag or category, or a reserved category that cannot be changed that way.
    InvalidArgument = 4,  ///< A colour outside of the palette, or an id where the library gives one.
    Locked = 5,           ///< Another program kept the library locked for longer than the library waits.
    DiskFull = 6,
    ReadOnly = 7,
    DiskError = 8,
    Failed = 9,  ///< Anything else that the database reports.
    Closed = 10,
    NotOpened = 11,    ///< The file, or its log beside it, cannot be opened.
    NameInvalid = 12,  ///< A name with NUL or half a surrogate pair.
    Moved = 13,        ///< The file was moved, deleted or replaced while it was open.
    Cancelled = 14,
    Damaged = 15  ///< What is in the file is no library any more, or a library that contradicts itself.
};
