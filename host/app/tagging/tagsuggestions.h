// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

/// The tags that a person may mean who has typed the beginning of a name. GUI thread only.
///
/// A name fits when it, or a word inside it, begins with what was typed, or when its Mandarin reading does; case, width
/// and accents do not count. Asking costs one comparison for each tag.
class TagSuggestions
{
public:
    struct Tag
    {
        qint64 id = 0;
        QString name;
        int files = 0;
    };
    /// How a name fits, the best first.
    enum class Fit
    {
        Whole,      ///< The same when folded.
        Beginning,  ///< It begins so.
        Word,       ///< A word inside begins so.
        Reading,    ///< Its Mandarin reading begins so, blanks left aside.
        None
    };
    struct Suggestion
    {
        Tag tag;
        Fit fit = Fit::None;
    };

    /// Replaces all tags. Folds the names that are new.
    void setTags(const QVector<Tag>& tags);
    /// Remembers that the tag was put on just now: it comes before others that fit as well.
    void noteUse(qint64 id);
    /// Whether there is a tag of exactly that name.
    [[nodiscard]] bool hasTag(const QString& name) const { return m_names.contains(name); }
    /// At most \a limit tags but those of \a without, by fit, then recent use, number of files and name.
    [[nodiscard]] QVector<Suggestion> suggestions(const QString& typed, const QVector<qint64>& without,
                                                  int limit) const;

private:
    struct Entry
    {
        Tag tag;
        QString folded;
        QString reading;  ///< Without blanks; empty for names without Chinese characters.
    };

    [[nodiscard]] static Fit fitOf(const Entry& entry, const QString& folded);

    QHash<qint64, Entry> m_entries;  ///< By tag.
    QVector<qint64> m_recent;        ///< The latest first.
    QSet<QString> m_names;
};
