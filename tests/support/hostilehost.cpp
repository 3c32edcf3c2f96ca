// SPDX-License-Identifier: MIT
#include "tests/support/hostilehost.h"

#include <itagaction.h>
#include <itaggroupaction.h>

namespace {

class HostileTagAction final : public ITagAction
{
public:
    HostileTagAction(HostileMindPointer mind, QSharedPointer<ITagAction> truth)
        : m_mind(std::move(mind))
        , m_truth(std::move(truth))
    {
        connect(m_truth.data(), &ITagAction::signalTagResult, this, &ITagAction::signalTagResult);
    }

    qint64 createTags(const QVector<NewTagRecord>& tags) override { return sent(m_truth->createTags(tags)); }
    qint64 renameTag(qint64 tagId, const QString& newName) override { return sent(m_truth->renameTag(tagId, newName)); }
    qint64 setTagColor(qint64 tagId, int colorIndex) override { return sent(m_truth->setTagColor(tagId, colorIndex)); }
    qint64 deleteTags(const QVector<qint64>& tagIds) override { return sent(m_truth->deleteTags(tagIds)); }
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return sent(m_truth->addTagsToGroups(groupIds, tagIds));
    }
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return sent(m_truth->removeTagsFromGroups(groupIds, tagIds));
    }

private:
    qint64 sent(qint64 requestId) { return m_mind->tell("tag request", requestId); }

    HostileMindPointer m_mind;
    QSharedPointer<ITagAction> m_truth;
};

class HostileGroupAction final : public ITagGroupAction
{
public:
    HostileGroupAction(HostileMindPointer mind, QSharedPointer<ITagGroupAction> truth)
        : m_mind(std::move(mind))
        , m_truth(std::move(truth))
    {
        connect(m_truth.data(), &ITagGroupAction::signalTagGroupResult, this, &ITagGroupAction::signalTagGroupResult);
    }

    qint64 addTagGroup(const QString& name) override { return sent(m_truth->addTagGroup(name)); }
    qint64 removeTagGroup(qint64 groupId) override { return sent(m_truth->removeTagGroup(groupId)); }
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override
    {
        return sent(m_truth->renameTagGroup(groupId, newName));
    }

private:
    qint64 sent(qint64 requestId) { return m_mind->tell("group request", requestId); }

    HostileMindPointer m_mind;
    QSharedPointer<ITagGroupAction> m_truth;
};

class HostileLibrary final : public ILibraryDataProvider
{
public:
    HostileLibrary(HostileMindPointer mind, MemoryLibrary* truth)
        : m_mind(std::move(mind))
        , m_manager(QSharedPointer<HostileManager>::create(m_mind, truth->manager))
        , m_tagAction(QSharedPointer<HostileTagAction>::create(m_mind, truth->tagActionObject))
        , m_groupAction(QSharedPointer<HostileGroupAction>::create(m_mind, truth->groupActionObject))
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
    HostileMindPointer m_mind;
    QSharedPointer<ITagManagerDataProvider> m_manager;
    QSharedPointer<ITagAction> m_tagAction;
    QSharedPointer<ITagGroupAction> m_groupAction;
};

}  // namespace

HostileHost::HostileHost(const QStringList& tagNames)
    : m_truth(tagNames)
    , m_mind(HostileMindPointer::create())
    , m_library(QSharedPointer<HostileLibrary>::create(m_mind, m_truth.memoryLibrary()))
{
    install();
}

HostileHost::~HostileHost()
{
    m_mind->inside = {};
    VLTagManagerSingleton::instance()->clear();
    VLTagManagerSingleton::instance()->setTagColorProvider(nullptr);
}

void HostileHost::install()
{
    VLTagManagerSingleton::instance()->setDataProvider(m_library);
    VLTagManagerSingleton::instance()->setTagColorProvider(m_truth.palette());
}
