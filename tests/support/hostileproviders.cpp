// SPDX-License-Identifier: MIT
#include "tests/support/hostileproviders.h"

#include <algorithm>

namespace {

constexpr int tooMany = 1000;

/// The one object that tells \a truth crookedly.
template <typename Hostile, typename Provider>
QSharedPointer<Provider> wrapped(QHash<const QObject*, QWeakPointer<Hostile>>& known, const HostileMindPointer& mind,
                                 const QSharedPointer<Provider>& truth)
{
    if (!truth)
        return {};
    QSharedPointer<Hostile> hostile = known.value(truth.data()).toStrongRef();
    if (!hostile) {
        hostile = QSharedPointer<Hostile>::create(mind, truth);
        known.insert(truth.data(), hostile);
    }
    return hostile;
}

}  // namespace

void HostileMind::enter(const char* operation)
{
    ++calls;
    if (inside)
        inside(operation);
}

int HostileMind::count(int truth) const
{
    switch (lie) {
    case HostLie::CountsOfZero:
        return 0;
    case HostLie::CountsTooHigh:
        return truth + tooMany;
    case HostLie::CountsBelowZero:
        return -1;
    default:
        return truth;
    }
}

HostileTag::HostileTag(HostileMindPointer mind, QSharedPointer<ITagDataProvider> truth)
    : m_mind(std::move(mind))
    , m_truth(std::move(truth))
{
    connect(m_truth.data(), &IDataProvider::signalUpdated, this, &IDataProvider::signalUpdated);
}

QSharedPointer<ITagDataProvider> HostileTag::of(const HostileMindPointer& mind,
                                                const QSharedPointer<ITagDataProvider>& truth)
{
    return wrapped(mind->tags, mind, truth);
}

int HostileTag::fileCount(int flag) const
{
    const int count = m_mind->count(m_truth->fileCount(flag));
    m_mind->enter("fileCount");
    return count;
}

QString HostileTag::name() const
{
    const QString name = m_truth->name();
    m_mind->enter("name");
    return m_mind->lie == HostLie::NamesAtOdds ? QStringLiteral("zz ") + name : name;
}

QSharedPointer<const ITagInfo> HostileTag::tagInfo() const
{
    const auto info = m_truth->tagInfo();
    m_mind->enter("tagInfo");
    return m_mind->lie == HostLie::NullRecords ? nullptr : info;
}

HostileGroup::HostileGroup(HostileMindPointer mind, QSharedPointer<ITagGroupDataProvider> truth)
    : m_mind(std::move(mind))
    , m_truth(std::move(truth))
{
    connect(m_truth.data(), &IDataProvider::signalUpdated, this, &IDataProvider::signalUpdated);
    connect(m_truth.data(), &ITagGroupDataProvider::signalAddTags, this, &ITagGroupDataProvider::signalAddTags);
    connect(m_truth.data(), &ITagGroupDataProvider::signalRemoveTags, this, &ITagGroupDataProvider::signalRemoveTags);
}

QSharedPointer<ITagGroupDataProvider> HostileGroup::of(const HostileMindPointer& mind,
                                                       const QSharedPointer<ITagGroupDataProvider>& truth)
{
    return wrapped(mind->groups, mind, truth);
}

int HostileGroup::tagCount(int flag) const
{
    const int count = m_mind->count(m_truth->tagCount(flag));
    m_mind->enter("tagCount");
    return count;
}

QString HostileGroup::groupName() const
{
    QString name = m_truth->groupName();
    m_mind->enter("groupName");
    return name;
}

QSharedPointer<const ITagGroupInfo> HostileGroup::groupInfo() const
{
    const auto info = m_truth->groupInfo();
    m_mind->enter("groupInfo");
    return m_mind->lie == HostLie::NullRecords ? nullptr : info;
}

qint64 HostileGroup::groupId() const
{
    const qint64 id = m_truth->groupId();
    m_mind->enter("groupId");
    return id;
}

int HostileGroup::tags(TagHash* out) const
{
    TagHash truth;
    m_truth->tags(&truth);
    const int count = tell(truth, out);
    m_mind->enter("tags");
    return count;
}

int HostileGroup::tagsByIds(const QVector<qint64>& ids, TagHash* out) const
{
    TagHash truth;
    if (m_mind->lie == HostLie::EverythingAlways)
        m_truth->tags(&truth);
    else if (m_mind->lie != HostLie::NullLookUps)
        m_truth->tagsByIds(ids, &truth);
    const int count = tell(truth, out);
    m_mind->enter("tagsByIds");
    return count;
}

QSharedPointer<ITagDataProvider> HostileGroup::tagByName(const QString& name) const
{
    const auto tag = HostileTag::of(m_mind, m_truth->tagByName(name));
    m_mind->enter("tagByName");
    return m_mind->lie == HostLie::NullLookUps ? nullptr : tag;
}

int HostileGroup::tell(const TagHash& truth, TagHash* out) const
{
    if (m_mind->lie == HostLie::WrongKeys) {
        QList<qint64> ids = truth.keys();
        if (!ids.isEmpty())
            std::rotate(ids.begin(), ids.begin() + 1, ids.end());
        for (const auto& tag : truth)
            out->insert(ids.takeFirst(), HostileTag::of(m_mind, tag));
    } else {
        for (auto it = truth.cbegin(); it != truth.cend(); ++it)
            out->insert(it.key(), HostileTag::of(m_mind, it.value()));
    }
    if (m_mind->lie == HostLie::NullsInLists) {
        out->insert(-5, {});
        out->insert(truth.isEmpty() ? 1 : truth.cbegin().key(), {});
    }
    return m_mind->count(truth.size());
}

HostileManager::HostileManager(HostileMindPointer mind, QSharedPointer<ITagManagerDataProvider> truth)
    : m_mind(std::move(mind))
    , m_truth(std::move(truth))
{
    connect(m_truth.data(), &ITagManagerDataProvider::signalAddTagGroups, this,
            &ITagManagerDataProvider::signalAddTagGroups);
    connect(m_truth.data(), &ITagManagerDataProvider::signalRemoveTagGroups, this,
            &ITagManagerDataProvider::signalRemoveTagGroups);
}

QSharedPointer<ITagGroupDataProvider> HostileManager::tagGroup(qint64 g_id) const
{
    const auto group = HostileGroup::of(m_mind, m_truth->tagGroup(g_id));
    m_mind->enter("tagGroup");
    return m_mind->lie == HostLie::NullLookUps ? nullptr : group;
}

QSharedPointer<ITagGroupDataProvider> HostileManager::tagGroupByName(const QString& name) const
{
    const auto group = HostileGroup::of(m_mind, m_truth->tagGroupByName(name));
    m_mind->enter("tagGroupByName");
    return m_mind->lie == HostLie::NullLookUps ? nullptr : group;
}

int HostileManager::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    QVector<QSharedPointer<ITagGroupDataProvider>> truth;
    m_truth->tagGroups(truth);
    for (const auto& group : qAsConst(truth))
        out.append(HostileGroup::of(m_mind, group));
    if (m_mind->lie == HostLie::NullsInLists)
        out.insert(0, nullptr);
    m_mind->enter("tagGroups");
    return m_mind->count(out.size());
}
