// SPDX-License-Identifier: MIT
#include "plugin/state/requestresult.h"

#include "plugin/state/vltagmanagersingleton.h"

#include <itagaction.h>
#include <itaggroupaction.h>

#include <QCoreApplication>
#include <QDebug>

namespace {

/// A handler for either kind of result signal. It runs in the thread that the host answers in.
auto resultHandler(qint64 requestId, const char* failureText, RequestSucceeded onSuccess)
{
    return [requestId, failureText,
            onSuccess = std::move(onSuccess)](qint64 id, const QSharedPointer<const IResponseInfo>& response) {
        if (id != requestId || !response)
            return;
        if (!VLTagManagerSingleton::instance()->isResponseSucceeded(response))
            qInfo() << failureText << response->message();
        else if (onSuccess && qApp)
            QMetaObject::invokeMethod(qApp, onSuccess, Qt::AutoConnection);
    };
}

}  // namespace

void followTagRequest(ITagAction* action, qint64 requestId, const char* failureText, RequestSucceeded onSuccess)
{
    QObject::connect(action, &ITagAction::signalTagResult, action,
                     resultHandler(requestId, failureText, std::move(onSuccess)), Qt::DirectConnection);
}

void followTagGroupRequest(ITagGroupAction* action, qint64 requestId, const char* failureText)
{
    QObject::connect(action, &ITagGroupAction::signalTagGroupResult, action, resultHandler(requestId, failureText, {}),
                     Qt::DirectConnection);
}
