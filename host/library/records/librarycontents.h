// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

/// The tags and categories of a library at one moment.
struct LibraryContents
{
    QVector<TagRow> tags;             ///< By id.
    QVector<CategoryRow> categories;  ///< By id; the favourites and the user categories.
    QVector<TagLink> links;
};
