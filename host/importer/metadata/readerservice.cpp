// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerservice.h"

#include "host/importer/metadata/confinement.h"
#include "host/importer/metadata/readermessage.h"

int readerservice::serve(const Handler& handler, const std::function<void()>& startThreads)
{
    constexpr int socket = STDIN_FILENO;
    confinement::closeFileSystem();
    if (startThreads)
        startThreads();
    const QByteArray reason = confinement::closeSystem();
    if (!reason.isEmpty()) {
        readermessage::sendAnswer(socket, QByteArray(readermessage::unconfined).append(reason));
        return 1;
    }
    if (!readermessage::sendAnswer(socket, readermessage::ready))
        return 1;
    ReaderRequest request;
    while (readermessage::receiveRequest(socket, &request)) {
        // The file may have been half read by a process that went down.
        lseek(request.file.number(), 0, SEEK_SET);
        if (!readermessage::sendAnswer(socket, handler(request)))
            return 1;
        request = {};
    }
    return 0;
}
