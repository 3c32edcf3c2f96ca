// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/requests/libraryrequest.h"

#include <QHash>

/// The requests that change roots, each the body of one transaction.
namespace rootrequests {

/// Finds or makes the root for \a folder, an absolute path without links: the one that is mounted there on this
/// computer or, with the folder's place in it, above; else a new one, which takes over the files of roots that are
/// mounted below. \a mounts is ComputerState::mounts(), to be brought up to date by the caller after the commit.
void add(LibraryRequest& request, const QHash<qint64, QByteArray>& mounts, const QByteArray& folder);

}  // namespace rootrequests
