// SPDX-License-Identifier: MIT
#include "tests/support/memoryhost.h"

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

QSharedPointer<MemoryResponse> MemoryHost::response(int status, const QString& message)
{
    return QSharedPointer<MemoryResponse>::create(status, message);
}

qint64 MemoryHost::takeRequest(MemoryRequest request)
{
    request.id = m_nextRequestId++;
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
    if (m_refusal) {
        answer(request, m_refusal);
        return;
    }
    const QString reason = refusal(request);
    answer(request, response(reason.isEmpty() ? 0 : 1, reason));
    if (reason.isEmpty())
        carryOut(request);
}

QString MemoryHost::refusal(const MemoryRequest& request) const
{
    const bool aboutTags =
        request.operation.contains(QLatin1String("Tags")) || request.operation == QLatin1String("renameTag");
    for (const QString& name : request.names) {
        if (name.trimmed().isEmpty())
            return QStringLiteral("The name is empty.");
        if (aboutTags ? tagId(name) != 0 : !manager()->tagGroupByName(name).isNull())
            return QStringLiteral("The name is taken.");
    }
    return {};
}

void MemoryHost::carryOut(const MemoryRequest& request)
{
    const QString& operation = request.operation;
    if (operation == QLatin1String("createTags")) {
        QVector<MemoryTagSpec> specs;
        for (int i = 0; i < request.names.size(); ++i)
            specs.append({request.names.at(i), request.colors.value(i)});
        addTags(specs);
    } else if (operation == QLatin1String("renameTag")) {
        renameTag(request.tags.first(), request.names.first());
    } else if (operation == QLatin1String("setTagColor")) {
        setTagColor(request.tags.first(), request.colors.first());
    } else if (operation == QLatin1String("deleteTags")) {
        removeTags(request.tags);
    } else if (operation == QLatin1String("addTagsToGroups")) {
        addTagsToGroups(request.groups, request.tags);
    } else if (operation == QLatin1String("removeTagsFromGroups")) {
        removeTagsFromGroups(request.groups, request.tags);
    } else if (operation == QLatin1String("addTagGroup")) {
        addGroups(request.names);
    } else if (operation == QLatin1String("removeTagGroup")) {
        removeGroups(request.groups);
    } else if (operation == QLatin1String("renameTagGroup")) {
        renameGroup(request.groups.first(), request.names.first());
    }
}

void MemoryHost::answer(const MemoryRequest& request, const QSharedPointer<const IResponseInfo>& response)
{
    const auto library = m_library;
    if (request.operation.contains(QLatin1String("TagGroup")))
        emit library->groupActionObject->signalTagGroupResult(request.id, response);
    else
        emit library->tagActionObject->signalTagResult(request.id, response);
}

void MemoryHost::answerForeign(qint64 requestId, const QSharedPointer<const IResponseInfo>& response)
{
    emit m_library->tagActionObject->signalTagResult(requestId, response);
    emit m_library->groupActionObject->signalTagGroupResult(requestId, response);
}
