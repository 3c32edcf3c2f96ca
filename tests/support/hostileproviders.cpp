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

int HostileGroup::tags(TagHash* out) const
{
    TagHash truth;
    m_truth->tags(&truth);
    return m_mind->tell("tags", tell(truth, out));
}

int HostileGroup::tagsByIds(const QVector<qint64>& ids, TagHash* out) const
{
    TagHash truth;
    if (m_mind->lie == HostLie::EverythingAlways)
        m_truth->tags(&truth);
    else if (m_mind->lie != HostLie::NullLookUps)
        m_truth->tagsByIds(ids, &truth);
    return m_mind->tell("tagsByIds", tell(truth, out));
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

int HostileManager::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    QVector<QSharedPointer<ITagGroupDataProvider>> truth;
    m_truth->tagGroups(truth);
    for (const auto& group : qAsConst(truth))
        out.append(HostileGroup::of(m_mind, group));
    if (m_mind->lie == HostLie::NullsInLists)
        out.insert(0, nullptr);
    return m_mind->tell("tagGroups", m_mind->count(out.size()));
}
