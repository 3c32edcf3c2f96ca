// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVector>

namespace bench {

/// What a large library holds, in proportion to its number of tags, and what comes into it: the same in every process.
/// A few tags are on a tenth of the files, most on a handful.
class LibraryContent
{
public:
    static constexpr int fewestTags = 1000;

    /// \a tags is fewestTags or more.
    explicit LibraryContent(int tags);

    [[nodiscard]] int tags() const { return m_tags; }
    [[nodiscard]] int categories() const { return m_tags / 50; }
    [[nodiscard]] int files() const { return 10 * m_tags; }
    static constexpr int tagsOfFile = 3;
    /// How many files are imported, and how many tags come with them, or from another program.
    [[nodiscard]] int importedFiles() const { return m_tags; }
    [[nodiscard]] int newTags() const { return m_tags / 5; }

    /// Of the tag with that id; ids count from 1. The first tagsOfFile tags are on more files than any others.
    [[nodiscard]] QString tagName(int id) const { return m_names.at(id - 1); }
    /// Names that no tag has: for tags that come from another program, and for tags that a person makes.
    [[nodiscard]] QStringList outsideNames() const { return m_names.mid(m_tags + newTags(), newTags()); }
    [[nodiscard]] QString freeName(int index) const { return m_names.at(m_tags + 2 * newTags() + index); }
    static constexpr int freeNames = 100;
    [[nodiscard]] static QString categoryName(int index) { return QStringLiteral("Category %1").arg(index); }

    /// Of a file that is imported: one that all of them have, one of the library's, and on every fifth a new one.
    [[nodiscard]] QVector<QString> keywords(int file) const;
    [[nodiscard]] static QString commonKeyword() { return QStringLiteral("Imported by the benchmark"); }

private:
    int m_tags;
    QStringList m_names;
};

}  // namespace bench
