// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/requests/libraryrequest.h"

/// The requests that change categories, each the body of one transaction; a name that is kept writes nothing.
namespace categoryrequests {

void create(LibraryRequest& request, const QString& name);
void rename(LibraryRequest& request, qint64 id, const QString& name);
void remove(LibraryRequest& request, qint64 id);

}  // namespace categoryrequests
