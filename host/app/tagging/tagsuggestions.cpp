// SPDX-License-Identifier: MIT
#include "host/app/tagging/tagsuggestions.h"

#include "host/library/query/foldedname.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

constexpr int recentTags = 50;

bool hasWordBeginning(const QString& text, const QString& start)
{
    for (int at = text.indexOf(start); at >= 0; at = text.indexOf(start, at + 1)) {
        if (at > 0 && !text.at(at - 1).isLetterOrNumber())
            return true;
    }
    return false;
}

}  // namespace

void TagSuggestions::setTags(const QVector<Tag>& tags)
{
    const QHash<qint64, Entry> before = std::exchange(m_entries, {});
    m_entries.reserve(tags.size());
    m_names.clear();
    m_names.reserve(tags.size());
    for (const Tag& tag : tags) {
        Entry entry = before.value(tag.id);
        if (entry.tag.name != tag.name)
            entry = {tag, foldedname::folded(tag.name), foldedname::reading(tag.name)};
        entry.tag = tag;
        m_entries.insert(tag.id, entry);
        m_names.insert(tag.name);
    }
}

void TagSuggestions::noteUse(qint64 id)
{
    m_recent.removeAll(id);
    m_recent.prepend(id);
    if (m_recent.size() > recentTags)
        m_recent.removeLast();
}

QVector<TagSuggestions::Suggestion> TagSuggestions::suggestions(const QString& typed, const QVector<qint64>& without,
                                                                int limit) const
{
    const QString folded = foldedname::folded(typed.trimmed());
    QVector<Suggestion> found;
    if (folded.isEmpty())
        return found;
    for (const Entry& entry : m_entries) {
        const Fit fit = fitOf(entry, folded);
        if (fit != Fit::None && !without.contains(entry.tag.id))
            found.append({entry.tag, fit});
    }
    const auto rank = [this](const Suggestion& suggestion) {
        const int used = m_recent.indexOf(suggestion.tag.id);
        return std::make_tuple(int(suggestion.fit), used < 0 ? recentTags : used, -suggestion.tag.files,
                               suggestion.tag.name);
    };
    const int count = std::min(limit, found.size());
    std::partial_sort(found.begin(), found.begin() + count, found.end(),
                      [&rank](const Suggestion& a, const Suggestion& b) { return rank(a) < rank(b); });
    found.resize(count);
    return found;
}

TagSuggestions::Fit TagSuggestions::fitOf(const Entry& entry, const QString& folded)
{
    if (entry.folded == folded)
        return Fit::Whole;
    if (entry.folded.startsWith(folded))
        return Fit::Beginning;
    if (hasWordBeginning(entry.folded, folded))
        return Fit::Word;
    return !entry.reading.isEmpty() && entry.reading.startsWith(folded) ? Fit::Reading : Fit::None;
}
