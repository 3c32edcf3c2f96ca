// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/queryterm.h"

#include <QVector>

/// Which files are asked for.
struct FileQuery
{
    enum class Scope
    {
        AllFiles,
        Tags,        ///< Files that carry at least one of the tags.
        Categories,  ///< Files that carry at least one tag of at least one of the categories, reserved ones included.
        Matching     ///< Files for which the term holds.
    };

    Scope scope = Scope::AllFiles;
    QVector<qint64> ids;  ///< Tag or category ids; unknown ones are ignored.
    QueryTerm term;

    static FileQuery allFiles() { return {}; }
    static FileQuery ofTags(const QVector<qint64>& tagIds) { return {Scope::Tags, tagIds, {}}; }
    static FileQuery ofCategories(const QVector<qint64>& categoryIds) { return {Scope::Categories, categoryIds, {}}; }
    static FileQuery matching(const QueryTerm& term) { return {Scope::Matching, {}, term}; }
};
