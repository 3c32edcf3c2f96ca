// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerservice.h"

#include "host/importer/metadata/confinement.h"
#include "host/importer/metadata/readermessage.h"

int ReaderService::serve(const Handler& handler, const std::function<void()>& startThreads)
{
    constexpr int socket = STDIN_FILENO;
    Confinement::closeFileSystem();
    if (startThreads)
        startThreads();
    const QByteArray reason = Confinement::closeSystem();
    if (!reason.isEmpty()) {
        ReaderMessage::sendAnswer(socket, QByteArray(ReaderMessage::unconfined).append(reason));
        return 1;
    }
    if (!ReaderMessage::sendAnswer(socket, ReaderMessage::ready))
        return 1;
    ReaderRequest request;
    while (ReaderMessage::receiveRequest(socket, &request)) {
        // The file may have been half read by a process that went down.
        lseek(request.file.number(), 0, SEEK_SET);
        if (!ReaderMessage::sendAnswer(socket, handler(request)))
            return 1;
        request = {};
    }
    return 0;
}
