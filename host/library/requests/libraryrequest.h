// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryresult.h"

#include <functional>

class LibraryDatabase;

/// A request while it is carried out, inside its transaction.
struct LibraryRequest
{
    LibraryDatabase& database;
    qint64 changeId;        ///< Of the log's entry that the request will have.
    LibraryResult& result;  ///< To be filled, its change above all: what is not in the change is not committed.

    [[nodiscard]] LibraryChange& change() const { return result.change; }
};

/// Does the work of a request; throws a LibraryError to have nothing done.
using LibraryRequestBody = std::function<void(LibraryRequest& request)>;
