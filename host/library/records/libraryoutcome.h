// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/librarychange.h"
#include "host/library/records/librarystatus.h"

/// How a request ended: with a change (an empty one, when there was nothing to do) or with the reason why not.
struct LibraryOutcome
{
    LibraryStatus status = LibraryStatus::Done;
    QString message;
    QVector<TagRow> rejectedTags;
    QVector<CategoryRow> rejectedCategories;
    LibraryChange change;
};
