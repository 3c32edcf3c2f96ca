// SPDX-License-Identifier: MIT
#include "host/library/records/reservedcategory.h"

#include "host/library/records/tagname.h"

#include <QCoreApplication>

namespace {

constexpr const char* allTagsName = QT_TRANSLATE_NOOP("Library", "All Tags");
constexpr const char* unsortedName = QT_TRANSLATE_NOOP("Library", "Unsorted");
constexpr const char* favoritesName = QT_TRANSLATE_NOOP("Library", "Favorite Tags");
constexpr const char* earlierUnsortedName = "Uncategorized";

}  // namespace

QString reservedcategory::name(qint64 id)
{
    switch (id) {
    case allTags:
        return QCoreApplication::translate("Library", allTagsName);
    case unsorted:
        return QCoreApplication::translate("Library", unsortedName);
    case favorites:
        return QCoreApplication::translate("Library", favoritesName);
    default:
        return {};
    }
}

bool reservedcategory::isReservedName(const QString& name)
{
    const QString key = tagname::key(name);
    for (qint64 id : {allTags, unsorted, favorites}) {
        if (key == tagname::key(reservedcategory::name(id)))
            return true;
    }
    return key == QLatin1String(allTagsName) || key == QLatin1String(unsortedName) ||
           key == QLatin1String(favoritesName) || key == QLatin1String(earlierUnsortedName);
}
