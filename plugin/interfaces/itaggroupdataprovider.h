// SPDX-License-Identifier: MIT
#pragma once

#include "idataprovider.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>
#include <QVector>

class ITagDataProvider;
class ITagGroupInfo;

/// One category, or a reserved one.
class VLHOST_EXPORT ITagGroupDataProvider : public IDataProvider
{
    Q_OBJECT

public:
    explicit ITagGroupDataProvider(QObject* parent = nullptr);
    ~ITagGroupDataProvider() override;

    /// [0] Number of tags. \a flag is reserved; callers pass 1.
    virtual int tagCount(int flag) const = 0;
    virtual void reserved1() {}
    /// [2] Display name.
    virtual QString groupName() const = 0;
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    /// [6] The category's record; may be null once the category is gone.
    virtual QSharedPointer<const ITagGroupInfo> groupInfo() const = 0;
    /// [7] The category's id, also when the record is null.
    virtual qint64 groupId() const = 0;
    /// [8] Adds every tag of the category to \a out, which the caller passes empty, and returns how many.
    virtual int tags(QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const = 0;
    virtual void reserved9() {}
    virtual void reserved10() {}
    /// [11] Adds those of \a ids that the category holds to \a out, which the caller passes empty; returns how many.
    virtual int tagsByIds(const QVector<qint64>& ids, QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const = 0;
    /// [12] Null when no tag of the category has that name.
    virtual QSharedPointer<ITagDataProvider> tagByName(const QString& name) const = 0;

Q_SIGNALS:
    /// These tags joined the category.
    void signalAddTags(QVector<qint64> tag_ids);
    /// These tags left the category.
    void signalRemoveTags(QVector<qint64> tag_ids);
};
