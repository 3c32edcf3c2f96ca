// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

#include <optional>

class ITagDataProvider;

/// What one row of a tag list carries: a snapshot of the tag and the provider that it was read from.
struct TagItem
{
    qint64 id = 0;
    QString name;
    QColor color;  ///< Chip colour, from the palette; invalid when there is no palette.
    int fileCount = 0;
    QSharedPointer<ITagDataProvider> provider;
};

Q_DECLARE_METATYPE(TagItem)
Q_DECLARE_TYPEINFO(TagItem, Q_MOVABLE_TYPE);

/// Reads the provider's record, its colour in the shared palette and its file count.
/// Nothing when the provider or its record is null, or a search for \a filter does not find the name.
/// The host may do anything from inside the reading, so the pointer is a copy, and the caller has to look whether it is
/// still there itself.
std::optional<TagItem> readTagItem(QSharedPointer<ITagDataProvider> provider, const QString& filter = {});

/// Makes TagItem known to the meta-type system by its name; called once when the plug-in is loaded.
void registerTagItemMetaType();
