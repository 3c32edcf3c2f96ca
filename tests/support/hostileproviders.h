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
    QHash<const QObject*, QWeakPointer<HostileTag>> tags;
    QHash<const QObject*, QWeakPointer<HostileGroup>> groups;

    /// Lets the test at work and answers \a told, whose maker may be gone by then.
    template <typename Told>
    Told tell(const char* operation, Told told) const
    {
        if (inside)
            inside(operation);
        return told;
    }
    /// The pointer, or null when the lie is \a lieAboutIt.
    template <typename Told>
    Told tellUnless(HostLie lieAboutIt, const char* operation, Told told) const
    {
        return tell(operation, lie == lieAboutIt ? Told() : told);
    }
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

    int fileCount(int flag) const override
    {
        return m_mind->tell("fileCount", m_mind->count(m_truth->fileCount(flag)));
    }
    QString name() const override
    {
        return m_mind->tell<QString>("name", (m_mind->lie == HostLie::NamesAtOdds ? "zz " : "") + m_truth->name());
    }
    QSharedPointer<const ITagInfo> tagInfo() const override
    {
        return m_mind->tellUnless(HostLie::NullRecords, "tagInfo", m_truth->tagInfo());
    }

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

    int tagCount(int flag) const override { return m_mind->tell("tagCount", m_mind->count(m_truth->tagCount(flag))); }
    QString groupName() const override { return m_mind->tell("groupName", m_truth->groupName()); }
    QSharedPointer<const ITagGroupInfo> groupInfo() const override
    {
        return m_mind->tellUnless(HostLie::NullRecords, "groupInfo", m_truth->groupInfo());
    }
    qint64 groupId() const override { return m_mind->tell("groupId", m_truth->groupId()); }
    int tags(TagHash* out) const override;
    int tagsByIds(const QVector<qint64>& ids, TagHash* out) const override;
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagByName", HostileTag::of(m_mind, m_truth->tagByName(name)));
    }

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

    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagGroup", HostileGroup::of(m_mind, m_truth->tagGroup(g_id)));
    }
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagGroupByName",
                                  HostileGroup::of(m_mind, m_truth->tagGroupByName(name)));
    }
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

private:
    HostileMindPointer m_mind;
    QSharedPointer<ITagManagerDataProvider> m_truth;
};
