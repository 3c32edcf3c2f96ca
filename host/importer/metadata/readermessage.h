// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/metadata/filedescriptor.h"

#include <QByteArray>

/// What a reader process is asked to read.
struct ReaderRequest
{
    FileDescriptor file;  ///< Open for reading, at any position.
    QByteArray name;      ///< The last part of the file's path, at most 255 bytes.
    int pixels = 0;       ///< Of a thumbnail: the longest side, device pixels.
};

/// The messages between a program and its reader processes, on a socket of SOCK_SEQPACKET. A request is one message
/// that carries the open file. An answer is a frame: its length (4 bytes, the machine's order), then so many bytes, cut
/// into messages anywhere.
namespace readermessage {

/// Longest answer in bytes; more is no answer but a process gone wrong.
constexpr int longestAnswer = 64 << 20;
/// Most bytes of one message.
constexpr int messageSize = 64 << 10;
/// The first frame of a process that is confined and waits for requests.
constexpr char ready[] = "ready";
/// What the first frame of a process that cannot confine itself begins with; the reason follows.
constexpr char unconfined[] = "unconfined: ";

/// Sends without waiting. 0, or the error's number: EAGAIN and ETOOMANYREFS pass by themselves.
[[nodiscard]] int sendRequest(int socket, const ReaderRequest& request);
/// Waits for a request; false at the end of the socket.
[[nodiscard]] bool receiveRequest(int socket, ReaderRequest* request);
/// Sends one frame, waiting as long as it takes; false when the socket is closed.
bool sendAnswer(int socket, const QByteArray& answer);

}  // namespace readermessage
