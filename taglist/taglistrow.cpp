// SPDX-License-Identifier: MIT
#include "taglist/taglistrow.h"

#include <QObject>

namespace {

/// Where QStandardItem looks its own flags up.
constexpr int flagsRole = Qt::UserRole - 1;

constexpr Qt::ItemFlags rowFlags =
    Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;

}  // namespace

TagListRow::TagListRow(TagItem item, QMetaObject::Connection updates)
    : m_tag(std::move(item))
    , m_updates(std::move(updates))
{
}

TagListRow::~TagListRow()
{
    QObject::disconnect(m_updates);
}

void TagListRow::setTag(TagItem item)
{
    m_tag = std::move(item);
    emitDataChanged();
}

void TagListRow::replaceTag(TagItem item)
{
    m_tag = std::move(item);
}

QVariant TagListRow::data(int role) const
{
    if (role == Qt::UserRole)
        return QVariant::fromValue(m_tag);
    if (role == flagsRole)
        return static_cast<int>(rowFlags);
    return {};
}

void TagListRow::setData(const QVariant& value, int role)
{
    if (role == Qt::UserRole && value.canConvert<TagItem>())
        setTag(value.value<TagItem>());
}
