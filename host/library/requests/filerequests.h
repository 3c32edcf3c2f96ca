// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filetagging.h"
#include "host/library/requests/libraryrequest.h"

/// The requests that change what is on files, each the body of one transaction.
namespace filerequests {

/// Puts tags on and takes them off as a person's decisions, which later imports keep. A tag that is both put on and
/// taken off is taken off. What is as asked for already is not written. Unknown files and tags fail the request as a
/// whole. Costs a few look-ups for each pair of a file and a tag.
void tag(LibraryRequest& request, const FileTagging& tagging);

}  // namespace filerequests
