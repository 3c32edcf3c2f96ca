// SPDX-License-Identifier: MIT
#include "host/library/records/reservedcategory.h"

#include "host/library/records/tagname.h"

#include <QCoreApplication>

namespace {

constexpr const char* AllTagsName = QT_TRANSLATE_NOOP("Library", "All Tags");
constexpr const char* UnsortedName = QT_TRANSLATE_NOOP("Library", "Unsorted");
constexpr const char* FavoritesName = QT_TRANSLATE_NOOP("Library", "Favorite Tags");
constexpr const char* EarlierUnsortedName = "Uncategorized";

}  // namespace

QString reservedcategory::name(qint64 id)
{
    switch (id) {
    case AllTags:
        return QCoreApplication::translate("Library", AllTagsName);
    case Uncategorized:
        return QCoreApplication::translate("Library", UnsortedName);
    case Favorites:
        return QCoreApplication::translate("Library", FavoritesName);
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
    return key == QLatin1String(AllTagsName) || key == QLatin1String(UnsortedName) ||
           key == QLatin1String(FavoritesName) || key == QLatin1String(EarlierUnsortedName);
}
