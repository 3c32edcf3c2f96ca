// SPDX-License-Identifier: MIT
#include "host/importer/metadata/keywordlist.h"

#include "host/library/records/tagname.h"

void KeywordList::add(const QString& keyword)
{
    const QString key = tagname::key(keyword);
    if (key.isEmpty() || m_known.contains(key))
        return;
    m_known.insert(key);
    m_keywords.append(tagname::kept(keyword));
}

void KeywordList::add(const QStringList& keywords)
{
    for (const QString& keyword : keywords)
        add(keyword);
}
