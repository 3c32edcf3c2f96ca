// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/requests/libraryrequest.h"

/// Libraries of version 1 kept of a file's keywords only a hash, so that nothing told which tag a keyword had become
/// when it was renamed, or that it was deleted. It is found out when the files have been read again.
namespace version1keywords {

/// The hash that version 1 kept of a file's keywords, each once and in the order read.
[[nodiscard]] QByteArray hashOf(const QVector<QString>& keywords);

/// Decides about the keywords that were met since the files began to be read again, from those files whose keywords are
/// still what version 1 saw: a keyword leads to the tag of its name if all of them, and no others, have it, else to the
/// one tag that all of them, and no others, have and that no keyword's name explains. If there is none it leads to the
/// tag of its name, is ignored if no tag has it, or makes one if only files have it that version 1 did not know so. If
/// there are several it is undecided. Tags that no keyword explains then stay as a person's decisions. A keyword that
/// became a tag of its name while only a part of the files had been read is decided again. The body of one transaction;
/// a library without such files is left as it is.
void settle(LibraryRequest& request);

}  // namespace version1keywords
