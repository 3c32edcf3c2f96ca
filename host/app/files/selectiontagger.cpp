// SPDX-License-Identifier: MIT
#include "host/app/files/selectiontagger.h"

#include "host/app/files/fileview.h"
#include "host/app/tagging/tagfield.h"
#include "host/app/tagging/tagstrip.h"
#include "host/library/library.h"
#include "host/library/records/tagpalette.h"

#include <ilibrarydataprovider.h>
#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <tagrecords.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int mostTagsShown = 200;
constexpr int mostFavorites = 9;  // one for each digit

using Tags = QHash<qint64, QSharedPointer<ITagDataProvider>>;

QSharedPointer<ITagGroupDataProvider> allTags(const Library& library)
{
    return library.dataProvider()->tagManagerDataProvider()->tagGroup(taggroupid::allTags);
}

}  // namespace

SelectionTagger::SelectionTagger(Library& library, FileView& view, TagStrip& strip, QObject* parent)
    : QObject(parent)
    , m_library(library)
    , m_view(view)
    , m_strip(strip)
{
    m_ask.setSingleShot(true);
    m_ask.setInterval(0);
    connect(&m_ask, &QTimer::timeout, this, &SelectionTagger::askForTags);
    connect(&m_view, &FileView::filesSelected, &m_ask, qOverload<>(&QTimer::start));
    connect(&m_library, &Library::filesChanged, &m_ask, qOverload<>(&QTimer::start));
    connect(&m_strip, &TagStrip::putOnAll, this, [this](qint64 tagId) { putOn({tagId}); });
    connect(&m_strip, &TagStrip::takeOff, this, [this](qint64 tagId) { sendForSelection({{}, {}, {}, {tagId}}); });
    connect(m_strip.field(), &TagField::tagChosen, this, [this](qint64 tagId) { putOn({tagId}); });
    connect(m_strip.field(), &TagField::nameChosen, this, [this](const QString& name) {
        sendForSelection({{}, {}, {name}, {}});
    });
    connect(m_strip.field(), &TagField::suggestionsNeeded, this, &SelectionTagger::readNames);
    connect(&m_view, &FileView::tagDropped, this, &SelectionTagger::putOnFiles);
    connect(&m_view, &FileView::digitPressed, this, &SelectionTagger::putOnFavorite);
    connect(&m_library, &Library::tagsChanged, this, [this] {
        m_areNamesOutdated = m_areFavoritesOutdated = true;
        m_ask.start();
    });
    m_strip.showTags({}, 0);
}

SelectionTagger::~SelectionTagger() = default;

void SelectionTagger::copyTags()
{
    m_copied = m_onAll;
}

void SelectionTagger::pasteTags()
{
    putOn(m_copied);
}

void SelectionTagger::putOnAgain()
{
    sendForSelection(m_last);
}

void SelectionTagger::putOn(const QVector<qint64>& tagIds)
{
    sendForSelection({{}, tagIds, {}, {}});
}

void SelectionTagger::putOnFiles(qint64 tagId, const QVector<qint64>& files)
{
    send({files, {tagId}, {}, {}});
}

void SelectionTagger::putOnFavorite(int digit)
{
    readFavorites();
    if (digit <= m_favorites.size())
        putOn({m_favorites.at(digit - 1)});
}

void SelectionTagger::readFavorites()
{
    if (!m_areFavoritesOutdated)
        return;
    m_areFavoritesOutdated = false;
    Tags tags;
    if (const auto group = m_library.dataProvider()->tagManagerDataProvider()->tagGroup(taggroupid::favorites))
        group->tags(&tags);
    m_favorites = QVector<qint64>::fromList(tags.keys());
    const auto isBefore = [&tags](qint64 a, qint64 b) {
        return QString::localeAwareCompare(tags.value(a)->name(), tags.value(b)->name()) < 0;
    };
    const int count = std::min(mostFavorites, m_favorites.size());
    std::partial_sort(m_favorites.begin(), m_favorites.begin() + count, m_favorites.end(), isBefore);
    m_favorites.resize(count);
    QStringList names;
    for (const qint64 id : qAsConst(m_favorites))
        names.append(tags.value(id)->name());
    m_strip.setFavorites(names);
}

/// One question at a time: a selection that grows under the mouse would queue up hundreds of them.
void SelectionTagger::askForTags()
{
    readFavorites();
    if (m_isAsking) {
        m_isOutdated = true;
        return;
    }
    const QVector<qint64> selected = m_view.selectedFiles();
    if (selected.isEmpty()) {
        showTags({}, 0);
        return;
    }
    m_isAsking = true;
    m_library.queryTagShares(selected, this, [this, count = selected.size()](const auto& shares) {
        m_isAsking = false;
        if (std::exchange(m_isOutdated, false))
            m_ask.start();
        else if (shares)
            showTags(shares.value, count);
    });
}

void SelectionTagger::showTags(const QVector<TagShare>& shares, int selected)
{
    QVector<qint64> ids;
    m_onAll.clear();
    for (const TagShare& share : shares) {
        if (ids.size() < mostTagsShown)
            ids.append(share.tagId);
        if (share.files == selected)
            m_onAll.append(share.tagId);
    }
    Tags tags;
    allTags(m_library)->tagsByIds(ids, &tags);
    QVector<SelectedTag::Content> contents;
    for (const TagShare& share : shares) {
        const auto tag = tags.value(share.tagId);
        if (!tag)
            continue;
        QColor color;
        TagPalette::instance()->color(tag->tagInfo()->colorIndex(), color);
        contents.append({share.tagId, tag->name(), color, share.files, selected});
    }
    m_strip.showTags(contents, selected);
}

void SelectionTagger::readNames()
{
    if (!m_areNamesOutdated)
        return;
    m_areNamesOutdated = false;
    Tags tags;
    allTags(m_library)->tags(&tags);
    QVector<TagSuggestions::Tag> names;
    names.reserve(tags.size());
    for (auto tag = tags.cbegin(); tag != tags.cend(); ++tag)
        names.append({tag.key(), tag.value()->name(), tag.value()->fileCount(1)});
    m_strip.field()->suggestions().setTags(names);
}

void SelectionTagger::sendForSelection(FileTagging tagging)
{
    tagging.files = m_view.selectedFiles();
    const bool asksForNothing = tagging.put.isEmpty() && tagging.takeOff.isEmpty() && tagging.putByName.isEmpty();
    if (!tagging.files.isEmpty() && !asksForNothing)
        send(tagging);
}

void SelectionTagger::send(const FileTagging& tagging)
{
    if (tagging.takeOff.isEmpty())
        m_last = {{}, tagging.put, tagging.putByName, {}};
    for (const qint64 id : tagging.put)
        m_strip.field()->suggestions().noteUse(id);
    m_library.carryOut(LibraryCommand::tagFiles(tagging), this, [this](const LibraryResult& result) {
        if (!result.succeeded())
            emit refused(result.message);
    });
}
