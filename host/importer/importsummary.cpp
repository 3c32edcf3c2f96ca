// SPDX-License-Identifier: MIT
#include "host/importer/importsummary.h"

void ImportSummary::add(const ImportSummary& later)
{
    error = later.error;
    noSuchFolder = later.noSuchFolder;
    cancelled = later.cancelled;
    totals = later.totals;
    found += later.found;
    added += later.added;
    changed += later.changed;
    removed += later.removed;
    skipped += later.skipped;
    unreadable += later.unreadable;
    missing += later.missing;
    away += later.away;
}
