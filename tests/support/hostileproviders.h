// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/memoryproviders.h"

#include <QHash>
#include <QSharedPointer>

#include <functional>

/// Runs code of the test from inside every call of the plug-in; it is handed the operation's name, such as
/// "tagsByIds", when the answer stands but was not given yet.
using InsideCall = std::function<void(const char* operation)>;

/// How crooked answers are.
enum class HostLie
{
    None,
    CountsOfZero,      ///< Every count is 0, whatever was filled in.
    CountsTooHigh,     ///< Every count is a thousand too high.
    CountsBelowZero,   ///< Every count is -1.
    NullsInLists,      ///< Null pointers among the tags and the categories.
    NullRecords,       ///< No tag and no category has a record.
    NullLookUps,       ///< Categories and tags are never found.
    NullActions,       ///< There are no action objects.
    NullManager,       ///< There is no library behind the library object.
    WrongKeys,         ///< Hashes name each tag with the id of another.
    EverythingAlways,  ///< Whatever ids are asked for, all tags are answered.
    NamesAtOdds,       ///< A tag's name() differs from the name in its record.
};

class HostileTag;
class HostileGroup;

/// What all parts of a hostile library share.
struct HostileMind
{
    InsideCall inside;
    HostLie lie = HostLie::None;
    int calls = 0;
    QHash<const QObject*, QWeakPointer<HostileTag>> tags;
    QHash<const QObject*, QWeakPointer<HostileGroup>> groups;

    void enter(const char* operation);
    int count(int truth) const;
};

using HostileMindPointer = QSharedPointer<HostileMind>;

/// A tag of another provider, told crookedly. As all classes here it passes the signals of the other one on, and there
/// is one object for each of the other's as long as anybody holds it.
class HostileTag final : public ITagDataProvider
{
public:
    HostileTag(HostileMindPointer mind, QSharedPointer<ITagDataProvider> truth);
    static QSharedPointer<ITagDataProvider> of(const HostileMindPointer& mind,
                                               const QSharedPointer<ITagDataProvider>& truth);

    int fileCount(int flag) const override;
    QString name() const override;
    QSharedPointer<const ITagInfo> tagInfo() const override;

private:
    HostileMindPointer m_mind;
    QSharedPointer<ITagDataProvider> m_truth;
};

/// A category of another provider, told crookedly.
class HostileGroup final : public ITagGroupDataProvider
{
public:
    HostileGroup(HostileMindPointer mind, QSharedPointer<ITagGroupDataProvider> truth);
    static QSharedPointer<ITagGroupDataProvider> of(const HostileMindPointer& mind,
                                                    const QSharedPointer<ITagGroupDataProvider>& truth);

    int tagCount(int flag) const override;
    QString groupName() const override;
    QSharedPointer<const ITagGroupInfo> groupInfo() const override;
    qint64 groupId() const override;
    int tags(TagHash* out) const override;
    int tagsByIds(const QVector<qint64>& ids, TagHash* out) const override;
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override;

private:
    int tell(const TagHash& truth, TagHash* out) const;

    HostileMindPointer m_mind;
    QSharedPointer<ITagGroupDataProvider> m_truth;
};

/// All categories of another provider, told crookedly.
class HostileManager final : public ITagManagerDataProvider
{
public:
    HostileManager(HostileMindPointer mind, QSharedPointer<ITagManagerDataProvider> truth);

    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override;
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override;
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

private:
    HostileMindPointer m_mind;
    QSharedPointer<ITagManagerDataProvider> m_truth;
};
