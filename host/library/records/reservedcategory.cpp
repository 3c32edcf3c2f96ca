// SPDX-License-Identifier: MIT
#include "host/library/records/reservedcategory.h"

#include "host/library/records/librarytext.h"
#include "host/library/records/tagname.h"

QString reservedcategory::name(qint64 id)
{
    switch (id) {
    case AllTags:
        return librarytext::tr("All Tags");
    case Uncategorized:
        return librarytext::tr("Uncategorized");
    case Favorites:
        return librarytext::tr("Favorite Tags");
    default:
        return {};
    }
}

bool reservedcategory::isReservedName(const QString& name)
{
    const QString key = tagname::key(name);
    for (qint64 id : {AllTags, Uncategorized, Favorites}) {
        if (key == tagname::key(reservedcategory::name(id)))
            return true;
    }
    return false;
}
