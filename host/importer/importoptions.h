// SPDX-License-Identifier: MIT
#pragma once

/// What an import does beyond reading what is new or changed.
struct ImportOptions
{
    bool rereads = false;  ///< Read every picture again, also those whose size and modification time are unchanged.
    /// Take the missing files out of the library, with their tags: those that are gone from folders that are there.
    /// To be asked for by a person, since nothing brings them back.
    bool forgetsMissing = false;
};
