// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readermessage.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace {

constexpr int longestName = 255;

struct RequestBody
{
    qint32 pixels;
    char name[longestName];
};

constexpr size_t controlSize = CMSG_SPACE(sizeof(int));

bool sendBytes(int socket, const char* bytes, int size)
{
    for (int sent = 0; sent < size;) {
        const ssize_t part =
            send(socket, bytes + sent, size_t(qMin(size - sent, readermessage::messageSize)), MSG_NOSIGNAL);
        if (part < 0 && errno != EINTR)
            return false;
        sent += part > 0 ? int(part) : 0;
    }
    return true;
}

}  // namespace

int readermessage::sendRequest(int socket, const ReaderRequest& request)
{
    RequestBody body = {request.pixels, {}};
    const int nameSize = qMin(request.name.size(), longestName);
    memcpy(body.name, request.name.constData(), size_t(nameSize));
    iovec part = {&body, offsetof(RequestBody, name) + size_t(nameSize)};
    alignas(cmsghdr) std::array<char, controlSize> control = {};
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* const rights = CMSG_FIRSTHDR(&message);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof(int));
    const int file = request.file.number();
    memcpy(CMSG_DATA(rights), &file, sizeof file);
    return sendmsg(socket, &message, MSG_NOSIGNAL | MSG_DONTWAIT) < 0 ? errno : 0;
}

bool readermessage::receiveRequest(int socket, ReaderRequest* request)
{
    RequestBody body = {};
    iovec part = {&body, sizeof body};
    alignas(cmsghdr) std::array<char, controlSize> control = {};
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    ssize_t size = 0;
    do {
        size = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    } while (size < 0 && errno == EINTR);
    const cmsghdr* const rights = CMSG_FIRSTHDR(&message);
    if (size < ssize_t(offsetof(RequestBody, name)) || !rights || rights->cmsg_type != SCM_RIGHTS)
        return false;
    int file = -1;
    memcpy(&file, CMSG_DATA(rights), sizeof file);
    request->file = FileDescriptor(file);
    request->name = QByteArray(body.name, int(size - ssize_t(offsetof(RequestBody, name))));
    request->pixels = body.pixels;
    return true;
}

bool readermessage::sendAnswer(int socket, const QByteArray& answer)
{
    const auto size = quint32(answer.size());
    char head[sizeof size];
    memcpy(head, &size, sizeof size);
    return sendBytes(socket, head, sizeof head) && sendBytes(socket, answer.constData(), answer.size());
}
