// SPDX-License-Identifier: MIT
#pragma once

/// What an import does beyond reading what is new or changed.
struct ImportOptions
{
    bool rereads = false;  ///< Read every picture again, also those whose size and modification time are unchanged.
};
