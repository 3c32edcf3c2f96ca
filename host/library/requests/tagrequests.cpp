// SPDX-License-Identifier: MIT
#include "host/library/requests/tagrequests.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/decisiontable.h"
#include "host/library/database/filetable.h"
#include "host/library/database/keywordtable.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/tagname.h"
#include "host/library/requests/requestchecks.h"

#include <QSet>

namespace {

using keywordtable::State;

/// A person who gives a tag the name of an ignored keyword takes the keyword back, at once for all files that have it.
void takeKeywordBack(LibraryRequest& request, TagRow& tag)
{
    const std::optional<keywordtable::Keyword> keyword = keywordtable::find(request.database, tag.name);
    if (!keyword || keyword->state == State::Unsettled)
        return;
    const bool isMapped = keyword->state == State::Mapped;
    if (isMapped && tagtable::exists(request.database, keyword->tagId))
        return;
    keywordtable::update(request.database, keyword->id, State::Mapped, tag.id);
    if (isMapped) {
        const int fewer = filetable::leaveKeyword(request.database, keyword->id, keyword->tagId);
        tagtable::addToFileCount(request.database, keyword->tagId, -fewer);
    }
    const int more = filetable::followKeyword(request.database, keyword->id, tag.id);
    if (more == 0)
        return;
    tagtable::addToFileCount(request.database, tag.id, more);
    request.change().fileCountChanges[tag.id] += more;
    request.change().filesChanged = true;
}

/// Pictures that come with the name of a merged tag get the tag that it became, also when none came with it so far.
void leadNameTo(LibraryDatabase& database, qint64 from, qint64 into)
{
    const QString name = tagtable::tagById(database, from)->name;
    if (!keywordtable::find(database, name))
        keywordtable::insert(database, name, State::Mapped, into);
}

void createTag(LibraryRequest& request, const NewTagRecord& record)
{
    if (record.id != 0)
        throw LibraryError(LibraryStatus::InvalidArgument, LibraryText::tr("The library gives tags their ids itself."));
    requestchecks::requireName(record.name);
    requestchecks::requireColor(record.colorIndex);
    if (tagtable::idByName(request.database, record.name) != 0)
        throw requestchecks::nameTaken(record.name);
    TagRow tag = tagtable::insertTag(request.database, record.name, record.colorIndex);
    request.change().tagsCreated.append(tag);
    takeKeywordBack(request, tag);
}

}  // namespace

void tagrequests::create(LibraryRequest& request, const QVector<NewTagRecord>& tags)
{
    for (const NewTagRecord& tag : tags) {
        try {
            createTag(request, tag);
        } catch (LibraryError& error) {
            throw error.rejectTags({{tag.id, tag.name, tag.colorIndex, 0}});
        }
    }
}

void tagrequests::rename(LibraryRequest& request, qint64 id, const QString& name)
{
    TagRow tag = requestchecks::requireTag(request.database, id);
    requestchecks::requireName(name);
    const qint64 owner = tagtable::idByName(request.database, name);
    if (owner != 0 && owner != id)
        throw requestchecks::nameTaken(name).rejectTags({tag});
    if (tag.name == tagname::kept(name))
        return;
    tagtable::updateName(request.database, id, name);
    tag.name = tagname::kept(name);
    request.change().tagsChanged.append(tag);
    takeKeywordBack(request, tag);
}

void tagrequests::recolor(LibraryRequest& request, qint64 id, int colorIndex)
{
    TagRow tag = requestchecks::requireTag(request.database, id);
    requestchecks::requireColor(colorIndex);
    if (tag.colorIndex == colorIndex)
        return;
    tagtable::updateColor(request.database, id, colorIndex);
    tag.colorIndex = colorIndex;
    request.change().tagsChanged.append(tag);
}

void tagrequests::remove(LibraryRequest& request, const QVector<qint64>& ids)
{
    requestchecks::requireTags(request.database, ids);
    QSet<qint64> removed;
    for (qint64 id : ids) {
        if (removed.contains(id))
            continue;
        removed.insert(id);
        tagtable::markDeleted(request.database, id, request.changeId);
        categorytable::addToCountsOf(request.database, id, -1);
        request.change().tagsDeleted.append(id);
    }
    request.change().filesChanged = !removed.isEmpty();
}

void tagrequests::merge(LibraryRequest& request, const QVector<qint64>& ids, qint64 into)
{
    (void)requestchecks::requireTag(request.database, into);
    QVector<qint64> others = ids;
    others.removeAll(into);
    requestchecks::requireTags(request.database, others);
    int more = 0;
    for (qint64 from : qAsConst(others)) {
        leadNameTo(request.database, from, into);
        more += filetable::copyTag(request.database, from, into);
        keywordtable::redirect(request.database, from, into);
        decisiontable::merge(request.database, from, into);
        for (qint64 categoryId : categorytable::categoriesOf(request.database, from)) {
            if (categorytable::addTag(request.database, {categoryId, into}))
                request.change().linksAdded.append({categoryId, into});
        }
    }
    if (more > 0) {
        tagtable::addToFileCount(request.database, into, more);
        request.change().fileCountChanges[into] += more;
    }
    remove(request, others);
}

void tagrequests::addToCategories(LibraryRequest& request, const QVector<qint64>& categoryIds,
                                  const QVector<qint64>& tagIds)
{
    requestchecks::requireFillableCategories(request.database, categoryIds);
    requestchecks::requireTags(request.database, tagIds);
    for (qint64 categoryId : categoryIds) {
        for (qint64 tagId : tagIds) {
            if (categorytable::addTag(request.database, {categoryId, tagId}))
                request.change().linksAdded.append({categoryId, tagId});
        }
    }
}

void tagrequests::removeFromCategories(LibraryRequest& request, const QVector<qint64>& categoryIds,
                                       const QVector<qint64>& tagIds)
{
    requestchecks::requireFillableCategories(request.database, categoryIds);
    requestchecks::requireTags(request.database, tagIds);
    for (qint64 categoryId : categoryIds) {
        for (qint64 tagId : tagIds) {
            if (categorytable::removeTag(request.database, {categoryId, tagId}))
                request.change().linksRemoved.append({categoryId, tagId});
        }
    }
}
