// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

struct ReaderRequest;

/// The work of a reader process (see ReaderProcess), which answers requests on its standard input.
namespace readerservice {

/// Reads one file and returns the answer. May crash, hang or exhaust the process.
using Handler = std::function<QByteArray(const ReaderRequest& request)>;

/// Confines the process and answers requests until the other side is gone. Everything that \a handler opens for itself
/// (plug-ins, fonts, tables) must be open; threads that it needs are started by \a startThreads, when the file system
/// is closed and no file was seen. confinement::limit() was called first. Returns the exit status; the caller ends the
/// process by _exit(), since nothing can be cleaned up.
[[nodiscard]] int serve(const Handler& handler, const std::function<void()>& startThreads = {});

}  // namespace readerservice
