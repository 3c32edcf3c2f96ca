// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVector>

/// Tags that a person puts on files and takes off them.
struct FileTagging
{
    QVector<qint64> files;
    QVector<qint64> put;      ///< Ids of tags.
    QStringList putByName;    ///< Tags to put on as well; those that there are not yet are made.
    QVector<qint64> takeOff;  ///< Ids of tags.
};
