// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

class ITagAction;
class ITagGroupAction;

/// What to do on the GUI thread once a request was carried out. It may run long after the widget that sent the request
/// is gone, so it guards what it captures.
using RequestSucceeded = std::function<void()>;

/// Waits for the answer to the request \a requestId of \a action. A failure is only logged: \a failureText, a string
/// literal, followed by the answer's message. Answers to other requests and null answers are ignored.
/// The connection lives as long as the action object does.
void followTagRequest(ITagAction* action, qint64 requestId, const char* failureText, RequestSucceeded onSuccess = {});

/// The same for a request of a category action.
void followTagGroupRequest(ITagGroupAction* action, qint64 requestId, const char* failureText);
