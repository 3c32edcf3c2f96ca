// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"

#include <QMetaObject>
#include <QStandardItem>

/// A row of a tag list: an item that keeps the tag's record itself instead of a boxed copy in its role table.
///
/// Seen from outside it is an item whose Qt::UserRole holds the whole TagItem, and which can be dragged; it has no
/// other role. Costs fewer allocations per tag, and the view reads records without copying them.
class TagListRow : public QStandardItem
{
public:
    /// \a updates, the connection that brings the tag's changes to the row, is cut with the row's life.
    explicit TagListRow(TagItem item, QMetaObject::Connection updates = {});
    ~TagListRow() override;

    [[nodiscard]] const TagItem& tag() const { return m_tag; }
    /// Replaces the record and reports the change as the model's dataChanged().
    void setTag(TagItem item);
    /// Replaces the record by one of the same name. Emits nothing: the caller notifies where it matters.
    void replaceTag(TagItem item);

    [[nodiscard]] QVariant data(int role) const override;
    /// Accepts a TagItem under Qt::UserRole, nothing else.
    void setData(const QVariant& value, int role) override;
    [[nodiscard]] int type() const override { return UserType; }

private:
    TagItem m_tag;
    QMetaObject::Connection m_updates;
};
