// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndex>
#include <QString>
#include <QStringList>

class QWidget;
struct TagItem;
class VLTagListView;

/// What a person does with the chips under a widget, and what a person sees of them.
namespace gestures {

/// Where a chip stands; without a view when it is not shown.
struct ChipPlace
{
    VLTagListView* view = nullptr;
    QModelIndex index;
};

/// The chip of the tag with that name in a list that is not hidden.
ChipPlace findChip(const QWidget* root, const QString& name);
/// One line for each list that is not hidden, from top to bottom: its letter, if any, a colon, and its chips' names
/// with commas between, such as "A: apple, avocado", or what \a describe says of them. Results of a search that found
/// nothing have no line.
QStringList shownChips(const QWidget* root, QString (*describe)(const TagItem&) = nullptr);
/// Name, file count and colour.
QString describeChip(const TagItem& tag);
/// The same lines for tags of these names that are filed under their letters, sorted as they have to be.
QStringList filedChips(const QStringList& names);

/// Each scrolls to the chip and acts on its centre; false when there is no such chip.
bool rightClickChip(const QWidget* root, const QString& name);
bool doubleClickChip(const QWidget* root, const QString& name);

}  // namespace gestures
