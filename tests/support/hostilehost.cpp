// SPDX-License-Identifier: MIT
#include "tests/support/hostilehost.h"

#include <itagaction.h>
#include <itaggroupaction.h>

#include <QHash>

#include <algorithm>

/// What all parts of a hostile library share.
struct HostileMind
{
    InsideCall inside;
    HostLie lie = HostLie::None;
    /// For each true provider the one that tells it crookedly, as long as anybody holds it.
    QHash<const QObject*, QWeakPointer<IDataProvider>> wrappers;

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
    [[nodiscard]] int count(int truth) const
    {
        constexpr int tooMany = 1000;
        return lie == HostLie::CountsOfZero      ? 0
               : lie == HostLie::CountsTooHigh   ? truth + tooMany
               : lie == HostLie::CountsBelowZero ? -1
                                                 : truth;
    }
};

namespace {

using MindPointer = QSharedPointer<HostileMind>;

/// What tells another provider crookedly and passes its signals on.
template <typename Provider>
class Hostile : public Provider
{
public:
    Hostile(MindPointer mind, QSharedPointer<Provider> truth)
        : m_mind(std::move(mind))
        , m_truth(std::move(truth))
    {
        passOn(&IDataProvider::signalUpdated);
    }

protected:
    template <typename Signal>
    void passOn(Signal signal)
    {
        QObject::connect(m_truth.data(), signal, this, signal);
    }

    MindPointer m_mind;
    QSharedPointer<Provider> m_truth;
};

/// The one object that tells \a truth crookedly.
template <typename Wrapper, typename Provider>
QSharedPointer<Provider> wrapped(const MindPointer& mind, const QSharedPointer<Provider>& truth)
{
    if (!truth)
        return {};
    auto wrapper = qSharedPointerCast<Provider>(mind->wrappers.value(truth.data()).toStrongRef());
    if (!wrapper) {
        wrapper = QSharedPointer<Wrapper>::create(mind, truth);
        mind->wrappers.insert(truth.data(), wrapper);
    }
    return wrapper;
}

class HostileTag final : public Hostile<ITagDataProvider>
{
public:
    using Hostile::Hostile;

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
};

class HostileGroup final : public Hostile<ITagGroupDataProvider>
{
public:
    HostileGroup(MindPointer mind, QSharedPointer<ITagGroupDataProvider> truth)
        : Hostile(std::move(mind), std::move(truth))
    {
        passOn(&ITagGroupDataProvider::signalAddTags);
        passOn(&ITagGroupDataProvider::signalRemoveTags);
    }

    int tagCount(int flag) const override { return m_mind->tell("tagCount", m_mind->count(m_truth->tagCount(flag))); }
    QString groupName() const override { return m_mind->tell("groupName", m_truth->groupName()); }
    QSharedPointer<const ITagGroupInfo> groupInfo() const override
    {
        return m_mind->tellUnless(HostLie::NullRecords, "groupInfo", m_truth->groupInfo());
    }
    qint64 groupId() const override { return m_mind->tell("groupId", m_truth->groupId()); }
    int tags(example::TagsById* out) const override
    {
        example::TagsById truth;
        m_truth->tags(&truth);
        return m_mind->tell("tags", tell(truth, out));
    }
    int tagsByIds(const QVector<qint64>& ids, example::TagsById* out) const override
    {
        example::TagsById truth;
        if (m_mind->lie == HostLie::EverythingAlways)
            m_truth->tags(&truth);
        else if (m_mind->lie != HostLie::NullLookUps)
            m_truth->tagsByIds(ids, &truth);
        return m_mind->tell("tagsByIds", tell(truth, out));
    }
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagByName",
                                  wrapped<HostileTag>(m_mind, m_truth->tagByName(name)));
    }

private:
    int tell(const example::TagsById& truth, example::TagsById* out) const
    {
        QList<qint64> ids = truth.keys();
        if (m_mind->lie == HostLie::WrongKeys && !ids.isEmpty())
            std::rotate(ids.begin(), ids.begin() + 1, ids.end());
        for (const auto& tag : truth)
            out->insert(ids.takeFirst(), wrapped<HostileTag>(m_mind, tag));
        if (m_mind->lie == HostLie::NullsInLists) {
            out->insert(-5, {});
            out->insert(truth.isEmpty() ? 1 : truth.cbegin().key(), {});
        }
        return m_mind->count(truth.size());
    }
};

class HostileManager final : public Hostile<ITagManagerDataProvider>
{
public:
    HostileManager(MindPointer mind, QSharedPointer<ITagManagerDataProvider> truth)
        : Hostile(std::move(mind), std::move(truth))
    {
        passOn(&ITagManagerDataProvider::signalAddTagGroups);
        passOn(&ITagManagerDataProvider::signalRemoveTagGroups);
    }

    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagGroup",
                                  wrapped<HostileGroup>(m_mind, m_truth->tagGroup(g_id)));
    }
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override
    {
        return m_mind->tellUnless(HostLie::NullLookUps, "tagGroupByName",
                                  wrapped<HostileGroup>(m_mind, m_truth->tagGroupByName(name)));
    }
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override
    {
        QVector<QSharedPointer<ITagGroupDataProvider>> truth;
        m_truth->tagGroups(truth);
        for (const auto& group : qAsConst(truth))
            out.append(wrapped<HostileGroup>(m_mind, group));
        if (m_mind->lie == HostLie::NullsInLists)
            out.insert(0, nullptr);
        return m_mind->tell("tagGroups", m_mind->count(out.size()));
    }
};

class HostileLibrary final : public ILibraryDataProvider
{
public:
    HostileLibrary(MindPointer mind, const example::Library& truth)
        : m_mind(std::move(mind))
        , m_manager(QSharedPointer<HostileManager>::create(m_mind, truth.manager))
        , m_tagAction(truth.tagRequests)
        , m_groupAction(truth.groupRequests)
    {
    }

    QSharedPointer<ITagAction> tagAction() const override
    {
        return m_mind->tellUnless(HostLie::NullActions, "tagAction", m_tagAction);
    }
    QSharedPointer<ITagGroupAction> tagGroupAction() const override
    {
        return m_mind->tellUnless(HostLie::NullActions, "tagGroupAction", m_groupAction);
    }
    QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const override
    {
        return m_mind->tellUnless(HostLie::NullManager, "tagManagerDataProvider", m_manager);
    }

private:
    MindPointer m_mind;
    QSharedPointer<ITagManagerDataProvider> m_manager;
    QSharedPointer<ITagAction> m_tagAction;
    QSharedPointer<ITagGroupAction> m_groupAction;
};

}  // namespace

HostileHost::HostileHost(const QStringList& tagNames)
    : InstalledHost(tagNames)
    , m_mind(MindPointer::create())
    , m_library(QSharedPointer<HostileLibrary>::create(m_mind, *memoryLibrary()))
{
    install();
}

HostileHost::~HostileHost()
{
    m_mind->inside = {};
}

void HostileHost::setLie(HostLie lie)
{
    m_mind->lie = lie;
}

void HostileHost::setInsideCall(InsideCall inside)
{
    m_mind->inside = std::move(inside);
}

void HostileHost::install()
{
    VLTagManagerSingleton::instance()->setDataProvider(m_library);
    VLTagManagerSingleton::instance()->setTagColorProvider(palette());
}

void HostileHost::requestTaken(const QString& operation)
{
    m_mind->tell(operation.toLatin1().constData(), 0);
}
