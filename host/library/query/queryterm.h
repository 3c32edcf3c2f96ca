// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <limits>
#include <vector>

/// A query for files as a tree: a condition, or a combination of others.
struct QueryTerm
{
    enum class Kind
    {
        All,         ///< All of the terms hold.
        Any,         ///< At least one of the terms holds.
        Not,         ///< The one term does not hold.
        TagLike,     ///< A tag whose folded name is that of the text.
        Tag,         ///< The tag of exactly that name.
        Category,    ///< A tag of a category whose folded name is that of the text.
        Untagged,    ///< No tag at all.
        NameHas,     ///< The text is in the file's name, both folded.
        FolderHas,   ///< The text is in the path of the file's folder within its root, both folded.
        TakenWithin  ///< Taken within the times.
    };

    Kind kind = Kind::All;
    QString text;
    qint64 from = std::numeric_limits<qint64>::min();   ///< Milliseconds on the camera's own clock since 1970-01-01.
    qint64 until = std::numeric_limits<qint64>::max();  ///< The first moment after, likewise.
    std::vector<QueryTerm> terms;                       ///< Of All and Any, two at least; of Not, one.
};
