// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/libraryresponse.h"
#include "host/library/memory/requestsender.h"

#include <QPointer>
#include <QSharedPointer>

/// Sends requests of action objects and emits their answers, never from inside the request call.
namespace actionrequest {

/// \a Signal of \a action is emitted with the returned id exactly once, on the GUI thread, unless the action or the
/// sender is destroyed before; without a sender the answer is that the library is closed.
template <typename Action, typename Signal>
qint64 send(RequestSender* sender, Action* action, Signal signal, ChangeKind kind, LibraryRequestBody&& body)
{
    const qint64 id = RequestSender::nextRequestId();
    const auto answer = [id, signal, kind, action = QPointer<Action>(action)](const LibraryResult& result) {
        if (action)
            emit(action.data()->*signal)(id, QSharedPointer<LibraryResponse>::create(kind, result));
    };
    if (sender)
        sender->send(kind, std::move(body), answer);
    else
        QMetaObject::invokeMethod(
            action, [answer] { answer(RequestSender::closedResult()); }, Qt::QueuedConnection);
    return id;
}

}  // namespace actionrequest
