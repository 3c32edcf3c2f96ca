// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QStringList>

/// The keywords of a picture from all places that hold some: each once, in the order in which they were first met.
/// Two keywords are the same when the library takes them for one name.
class KeywordList
{
public:
    /// Adds the keyword without the white space around it; a keyword of nothing else is ignored.
    void add(const QString& keyword);
    void add(const QStringList& keywords);

    [[nodiscard]] const QStringList& keywords() const { return m_keywords; }

private:
    QStringList m_keywords;
    QSet<QString> m_known;
};
