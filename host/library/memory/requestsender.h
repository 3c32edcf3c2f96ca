// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/requests/libraryrequest.h"

#include <QObject>

/// What carries requests to the library and brings their answers back. Lives on the GUI thread.
class RequestSender : public QObject
{
    Q_OBJECT

public:
    /// Called on the GUI thread, after everything that the request changed was emitted.
    using Answer = std::function<void(const LibraryResult& result)>;

    RequestSender();
    ~RequestSender() override;

    /// Callable on any thread. \a answer is not called when the sender is destroyed before.
    virtual void send(ChangeKind kind, LibraryRequestBody body, Answer answer) = 0;

    /// A number that no other request of the process has; above 0.
    [[nodiscard]] static qint64 nextRequestId();
    /// The answer to a request without a library.
    [[nodiscard]] static LibraryResult closedResult();
};
