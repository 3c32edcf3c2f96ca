// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One request that the plug-in sent, as the host keeps it.
struct MemoryRequest
{
    QString operation;            ///< Name of the interface's operation, such as "renameTag".
    QStringList names = {};       ///< New names: of the tags to create, or the one of a renaming.
    QVector<qint64> groups = {};  ///< Categories it is about.
    QVector<qint64> tags = {};    ///< Tags it is about.
    QVector<int> colors = {};     ///< Colour indexes: of the tags to create, or the one to set.
    qint64 id = 0;

    /// All of it but the id in one line for comparisons, such as `addTagsToGroups groups 1 tags 5,6`.
    QString text() const;
};
