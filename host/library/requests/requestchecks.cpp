// SPDX-License-Identifier: MIT
#include "host/library/requests/requestchecks.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"

namespace {

/// Messages go to logs whole; a name of any length must not.
QString shortened(const QString& name)
{
    constexpr int longest = 80;
    return name.size() <= longest ? name : name.left(longest) + QChar(0x2026);
}

LibraryError noSuchTags(const QVector<TagRow>& unknown)
{
    return LibraryError(LibraryStatus::UnknownId, LibraryText::tr("There is no tag %1.").arg(unknown.first().id))
        .rejectTags(unknown);
}

}  // namespace

LibraryError requestchecks::nameTaken(const QString& name)
{
    return {LibraryStatus::NameTaken,
            LibraryText::tr("The name \"%1\" is already taken.").arg(shortened(tagname::kept(name)))};
}

void requestchecks::requireName(const QString& name)
{
    if (tagname::kept(name).isEmpty())
        throw LibraryError(LibraryStatus::NameEmpty, LibraryText::tr("The name is empty."));
    if (!tagname::isValid(name))
        throw LibraryError(LibraryStatus::NameInvalid,
                           LibraryText::tr("The name has characters that no name may have: NUL or half of a pair."));
}

void requestchecks::requireColor(int index)
{
    if (index < 0 || index >= TagPalette::size)
        throw LibraryError(LibraryStatus::InvalidArgument, LibraryText::tr("There is no colour %1.").arg(index));
}

void requestchecks::requireTags(LibraryDatabase& database, const QVector<qint64>& ids)
{
    QVector<TagRow> unknown;
    for (qint64 id : ids) {
        if (!tagtable::exists(database, id))
            unknown.append({id, {}, 0, 0});
    }
    if (!unknown.isEmpty())
        throw noSuchTags(unknown);
}

TagRow requestchecks::requireTag(LibraryDatabase& database, qint64 id)
{
    const std::optional<TagRow> tag = tagtable::tagById(database, id);
    if (!tag)
        throw noSuchTags({{id, {}, 0, 0}});
    return *tag;
}

void requestchecks::requireFillableCategories(LibraryDatabase& database, const QVector<qint64>& ids)
{
    QVector<CategoryRow> unknown;
    for (qint64 id : ids) {
        if (!categorytable::exists(database, id))
            unknown.append({id, reservedcategory::name(id), 0});
    }
    if (!unknown.isEmpty())
        throw LibraryError(
            LibraryStatus::UnknownId,
            LibraryText::tr("There is no category %1 that tags can be put into.").arg(unknown.first().id))
            .rejectCategories(unknown);
}

CategoryRow requestchecks::requireUserCategory(LibraryDatabase& database, qint64 id)
{
    const std::optional<CategoryRow> category = categorytable::categoryById(database, id);
    if (!category || id < reservedcategory::firstUserId)
        throw LibraryError(LibraryStatus::UnknownId,
                           LibraryText::tr("There is no category %1 that can be changed.").arg(id))
            .rejectCategories({{id, reservedcategory::name(id), 0}});
    return *category;
}

void requestchecks::requireFreeCategoryName(LibraryDatabase& database, const QString& name, qint64 ownId)
{
    const qint64 owner = categorytable::idByName(database, name);
    if (reservedcategory::isReservedName(name) || (owner != 0 && owner != ownId))
        throw nameTaken(name).rejectCategories({{ownId, name, 0}});
}
