// SPDX-License-Identifier: MIT
#include "tests/support/memoryhost.h"

#include <QPointer>

namespace {

template <typename Interface>
class MemoryAction : public Interface
{
public:
    explicit MemoryAction(MemoryHost* host)
        : m_host(host)
    {
    }

protected:
    qint64 take(const MemoryRequest& request) { return m_host ? m_host->take(request) : 0; }

    const QPointer<MemoryHost> m_host;
};

class MemoryTagAction final : public MemoryAction<ITagAction>
{
public:
    using MemoryAction::MemoryAction;

    qint64 createTags(const QVector<NewTagRecord>& tags) override
    {
        QStringList names;
        QVector<example::NewTag> added;
        for (const NewTagRecord& tag : tags) {
            names.append(tag.name);
            added.append({tag.name, tag.colorIndex});
        }
        return take({"createTags", {}, {}, names, [=] { m_host->addTags(added); }});
    }
    qint64 renameTag(qint64 tagId, const QString& newName) override
    {
        return take({"renameTag", {}, {tagId}, {newName}, [=] { m_host->renameTag(tagId, newName); }});
    }
    qint64 setTagColor(qint64 tagId, int colorIndex) override
    {
        return take({"setTagColor", {}, {tagId}, {}, [=] { m_host->setTagColor(tagId, colorIndex); }});
    }
    qint64 deleteTags(const QVector<qint64>& tagIds) override
    {
        return take({"deleteTags", {}, tagIds, {}, [=] { m_host->removeTags(tagIds); }});
    }
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return take({"addTagsToGroups", groupIds, tagIds, {}, [=] { m_host->addTagsToGroups(groupIds, tagIds); }});
    }
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return take(
            {"removeTagsFromGroups", groupIds, tagIds, {}, [=] { m_host->removeTagsFromGroups(groupIds, tagIds); }});
    }
};

class MemoryGroupAction final : public MemoryAction<ITagGroupAction>
{
public:
    using MemoryAction::MemoryAction;

    qint64 addTagGroup(const QString& name) override
    {
        return take({"addTagGroup", {}, {}, {name}, [=] { m_host->addGroup(name); }});
    }
    qint64 removeTagGroup(qint64 groupId) override
    {
        return take({"removeTagGroup", {groupId}, {}, {}, [=] { m_host->removeGroup(groupId); }});
    }
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override
    {
        return take({"renameTagGroup", {groupId}, {}, {newName}, [=] { m_host->renameGroup(groupId, newName); }});
    }
};

QStringList texts(const QVector<qint64>& ids)
{
    QStringList texts;
    for (const qint64 id : ids)
        texts.append(QString::number(id));
    return texts;
}

}  // namespace

QString MemoryRequest::text() const
{
    QString text = operation;
    for (const auto& [title, values] :
         {std::make_pair(" groups ", texts(groups)), {" tags ", texts(tags)}, {" names ", names}})
        text += values.isEmpty() ? QString() : title + values.join(QLatin1Char(','));
    return text;
}

MemoryHost::MemoryHost(const QStringList& tagNames)
{
    m_library->manager = sharedManager();
    m_library->tagRequests = QSharedPointer<MemoryTagAction>::create(this);
    m_library->groupRequests = QSharedPointer<MemoryGroupAction>::create(this);
    addTags(tagNames);
}

MemoryHost::~MemoryHost() = default;

void MemoryHost::setFavorite(qint64 tagId, bool favorite)
{
    favorite ? addTagsToGroups({Favorites}, {tagId}) : removeTagsFromGroups({Favorites}, {tagId});
}

void MemoryHost::refuseWith(int status, const QString& message)
{
    m_refusal = status != 0 ? response(status, message) : nullptr;
}

QStringList MemoryHost::requestTexts() const
{
    QStringList texts;
    for (const MemoryRequest& request : m_requests)
        texts.append(request.text());
    return texts;
}

QSharedPointer<example::Response> MemoryHost::response(int status, const QString& message)
{
    return QSharedPointer<example::Response>::create(status, message);
}

qint64 MemoryHost::take(MemoryRequest request)
{
    request.id = ++m_lastRequestId;
    m_requests.append(request);
    if (m_answers == Answers::AtOnce)
        process(request);
    else if (m_answers == Answers::Later)
        QMetaObject::invokeMethod(
            this, [this, request] { process(request); }, Qt::QueuedConnection);
    requestTaken(request.operation);
    return request.id;
}

void MemoryHost::process(const MemoryRequest& request)
{
    const QString reason = refusal(request);
    answer(request, m_refusal ? m_refusal : response(reason.isEmpty() ? 0 : 1, reason));
    if (!m_refusal && reason.isEmpty())
        request.carryOut();
}

QString MemoryHost::refusal(const MemoryRequest& request) const
{
    for (const QString& name : request.names) {
        if (name.trimmed().isEmpty())
            return QStringLiteral("The name is empty.");
        if (request.operation.endsWith(QLatin1String("Group")) ? !manager()->tagGroupByName(name).isNull()
                                                               : tagId(name) != 0)
            return QStringLiteral("The name is taken.");
    }
    return {};
}

void MemoryHost::answer(const MemoryRequest& request, const QSharedPointer<const IResponseInfo>& response)
{
    const auto library = m_library;
    if (request.operation.endsWith(QLatin1String("Group")))
        emit library->groupRequests->signalTagGroupResult(request.id, response);
    else
        emit library->tagRequests->signalTagResult(request.id, response);
}

void MemoryHost::answerForeign(qint64 requestId, const QSharedPointer<const IResponseInfo>& response)
{
    emit m_library->tagRequests->signalTagResult(requestId, response);
    emit m_library->groupRequests->signalTagGroupResult(requestId, response);
}
