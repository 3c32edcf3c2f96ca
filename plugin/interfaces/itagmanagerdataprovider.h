// SPDX-License-Identifier: MIT
#pragma once

#include "idataprovider.h"

#include <QSharedPointer>
#include <QVector>

class ITagGroupDataProvider;

/// The tag library as a whole.
///
/// Reserved category ids: -1 every tag, 0 the fixed category, 1 the favourites. User categories lie above 1.
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
    /// [12] Fills \a out with the user categories and returns their number.
    virtual int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const = 0;

Q_SIGNALS:
    void signalAddTagGroups(QVector<qint64> g_ids);
    void signalRemoveTagGroups(QVector<qint64> g_ids);
};
