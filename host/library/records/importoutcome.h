// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What one batch of an import did. A batch is carried out whole or not at all.
struct ImportOutcome
{
    bool succeeded = false;
    QString message;  ///< Why the batch failed; empty on success. All numbers are 0 then.
    int filesAdded = 0;
    int filesChanged = 0;    ///< Files whose state or tags were written.
    int filesUnchanged = 0;  ///< Files for which nothing was written.
    int filesRemoved = 0;
    int tagsCreated = 0;
    int linksAdded = 0;
    int linksRemoved = 0;
};
