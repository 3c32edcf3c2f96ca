// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/requests/libraryrequest.h"

class ComputerState;

/// The requests that change roots, each the body of one transaction.
namespace rootrequests {

/// Finds or makes the root for \a folder, an absolute path without links: the one that is mounted there on this
/// computer or, with the folder's place in it, above; else a new one, which takes over the files of roots that are
/// mounted below. A mount above that was guessed gives up its files in the folder to the new root. The mounts are to be
/// brought up to date by the caller after the commit.
void add(LibraryRequest& request, const ComputerState& computer, const QByteArray& folder);

}  // namespace rootrequests
