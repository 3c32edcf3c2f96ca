// SPDX-License-Identifier: MIT
#include "host/library/requests/filerequests.h"

#include "host/library/database/decisiontable.h"
#include "host/library/database/filetable.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/tagpalette.h"
#include "host/library/requests/requestchecks.h"
#include "host/library/requests/tagrequests.h"

#include <algorithm>

namespace {

using decisiontable::Sign;

class Tagging
{
public:
    explicit Tagging(LibraryRequest& request)
        : m_request(request)
        , m_database(request.database)
    {
    }

    void carryOut(const FileTagging& tagging);

private:
    [[nodiscard]] QVector<qint64> idsOf(const QStringList& names);
    void putOn(qint64 fileId, qint64 tagId);
    void takeOff(qint64 fileId, qint64 tagId);
    void count(qint64 tagId, int more);
    void writeCounts();

    LibraryRequest& m_request;
    LibraryDatabase& m_database;
};

QVector<qint64> eachOnce(QVector<qint64> ids)
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

void Tagging::carryOut(const FileTagging& tagging)
{
    requestchecks::requireTags(m_database, tagging.put + tagging.takeOff);
    const QVector<qint64> takenOff = eachOnce(tagging.takeOff);
    const QVector<qint64> put = eachOnce(tagging.put + idsOf(tagging.putByName));
    for (const qint64 fileId : eachOnce(tagging.files)) {
        if (!filetable::exists(m_database, fileId))
            throw LibraryError(LibraryStatus::UnknownId, LibraryText::tr("There is no file %1.").arg(fileId));
        const QVector<qint64> shown = filetable::tagsOf(m_database, fileId);
        const auto isShown = [&](qint64 id) { return std::binary_search(shown.cbegin(), shown.cend(), id); };
        for (const qint64 tagId : put) {
            if (!isShown(tagId) && !takenOff.contains(tagId))
                putOn(fileId, tagId);
        }
        for (const qint64 tagId : takenOff) {
            if (isShown(tagId))
                takeOff(fileId, tagId);
        }
    }
    writeCounts();
}

QVector<qint64> Tagging::idsOf(const QStringList& names)
{
    QVector<qint64> ids;
    for (const QString& name : names) {
        const qint64 id = tagtable::idByName(m_database, name);
        if (id == 0)
            tagrequests::create(m_request, {NewTagRecord{name, 0, TagPalette::indexForName(name)}});
        ids.append(id != 0 ? id : m_request.change().tagsCreated.constLast().id);
    }
    return ids;
}

/// A file whose keyword leads to the tag lacks it by a decision only.
void Tagging::putOn(qint64 fileId, qint64 tagId)
{
    if (filetable::hasKeywordFor(m_database, fileId, tagId))
        decisiontable::remove(m_database, fileId, tagId);
    else
        decisiontable::set(m_database, fileId, tagId, Sign::Plus);
    filetable::addTag(m_database, fileId, tagId);
    count(tagId, 1);
}

void Tagging::takeOff(qint64 fileId, qint64 tagId)
{
    // Without a decision, the tag comes from a keyword or was filed by version 1, to be explained by a keyword later.
    const bool isByPersonAlone = decisiontable::find(m_database, fileId, tagId) == Sign::Plus &&
                                 !filetable::hasKeywordFor(m_database, fileId, tagId);
    if (isByPersonAlone)
        decisiontable::remove(m_database, fileId, tagId);
    else
        decisiontable::set(m_database, fileId, tagId, Sign::Minus);
    filetable::removeTag(m_database, fileId, tagId);
    count(tagId, -1);
}

void Tagging::count(qint64 tagId, int more)
{
    m_request.change().fileCountChanges[tagId] += more;
}

void Tagging::writeCounts()
{
    tagtable::addToFileCounts(m_database, m_request.change().fileCountChanges);
    m_request.change().filesChanged = !m_request.change().fileCountChanges.isEmpty();
}

}  // namespace

void filerequests::tag(LibraryRequest& request, const FileTagging& tagging)
{
    Tagging(request).carryOut(tagging);
}
