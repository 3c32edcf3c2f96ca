// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/libraryengine.h"
#include "host/library/memory/libraryresponse.h"
#include "host/library/records/libraryoutcome.h"
#include "host/library/records/librarytext.h"
#include "host/library/requests/librarystore.h"

#include <QPointer>
#include <QSharedPointer>

/// Sends requests to an engine and brings their answers to an action object, never from inside the request call.
namespace libraryrequest {

/// Carries out \a operation, a callable that takes a LibraryStore& and returns its LibraryOutcome, on the writing
/// thread. \a Signal of \a action is emitted with the returned id exactly once, on the GUI thread, unless the action or
/// the engine is destroyed before; without an engine the answer is that the library is closed.
template <typename Action, typename Signal, typename Operation>
qint64 send(LibraryEngine* engine, Action* action, Signal signal, Operation operation)
{
    const qint64 id = LibraryEngine::nextRequestId();
    const auto answer = [id, signal, action = QPointer<Action>(action)](const LibraryOutcome& outcome) {
        if (action)
            emit(action.data()->*signal)(id, QSharedPointer<LibraryResponse>::create(outcome));
    };
    if (!engine) {
        const LibraryOutcome closed{LibraryStatus::Closed, librarytext::tr("The library is closed."), {}, {}, {}};
        QMetaObject::invokeMethod(
            action, [answer, closed] { answer(closed); }, Qt::QueuedConnection);
        return id;
    }
    engine->send([answer, operation](LibraryDatabase& database) -> LibraryEngine::Result {
        LibraryStore store(database);
        const LibraryOutcome outcome = operation(store);
        return {outcome.change, [answer, outcome] { answer(outcome); }};
    });
    return id;
}

}  // namespace libraryrequest
