// SPDX-License-Identifier: MIT
#pragma once

#include "idataprovider.h"

#include <QSharedPointer>
#include <QVector>

class ITagGroupDataProvider;

/// Ids of categories that have a meaning of their own.
namespace taggroupid {

constexpr qint64 none = -2;      ///< No category.
constexpr qint64 allTags = -1;   ///< Every tag of the library.
constexpr qint64 fixed = 0;      ///< The fixed tile of the Tag Categories page.
constexpr qint64 favorites = 1;  ///< The favourites.
constexpr qint64 firstUser = 2;  ///< From here on, categories that a person made; up to 2147483647.

}  // namespace taggroupid

/// The tag library as a whole.
class VLHOST_EXPORT ITagManagerDataProvider : public IDataProvider
{
    Q_OBJECT

public:
    explicit ITagManagerDataProvider(QObject* parent = nullptr);
    ~ITagManagerDataProvider() override;

    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// [7] The category with that id, reserved ones included; null when there is none.
    virtual QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const = 0;
    /// [8] Null when no category has that name.
    virtual QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const = 0;
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    /// [12] Puts the user categories into \a out, which the caller passes empty, and returns how many.
    virtual int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const = 0;

Q_SIGNALS:
    /// These categories were created.
    void signalAddTagGroups(QVector<qint64> g_ids);
    /// These categories were deleted.
    void signalRemoveTagGroups(QVector<qint64> g_ids);
};
