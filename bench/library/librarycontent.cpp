// SPDX-License-Identifier: MIT
#include "bench/library/librarycontent.h"

#include "bench/names.h"

bench::LibraryContent::LibraryContent(int tags)
    : m_tags(tags)
    , m_names(tagNames(m_tags + 2 * newTags() + freeNames))
{
}

QVector<QString> bench::LibraryContent::keywords(int file) const
{
    constexpr qint64 stride = 7919;  // a prime: neighbouring files have nothing in common
    QVector<QString> keywords{commonKeyword(), m_names.at(static_cast<int>(file * stride % m_tags))};
    const int filesForNewTag = importedFiles() / newTags();
    if (file % filesForNewTag == 0)
        keywords.append(m_names.at(m_tags + file / filesForNewTag % newTags()));
    return keywords;
}
