// SPDX-License-Identifier: MIT
#include "host/library/memory/requestsender.h"

#include "host/library/records/librarytext.h"

#include <atomic>

RequestSender::RequestSender() = default;

RequestSender::~RequestSender() = default;

qint64 RequestSender::nextRequestId()
{
    static std::atomic<qint64> last = 0;
    return ++last;
}

LibraryResult RequestSender::closedResult()
{
    LibraryResult result;
    result.status = LibraryStatus::Closed;
    result.message = LibraryText::tr("The library is closed.");
    return result;
}
