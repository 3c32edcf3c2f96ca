// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

/// Thrown where a command without a window cannot go on.
struct CommandFailure
{
    int status;         ///< The program's exit status.
    QByteArray reason;  ///< For the person, in UTF-8; may hold any bytes of a path.
};

/// Runs \a command and returns 0, or prints the reason of its CommandFailure to stderr and returns the status.
[[nodiscard]] int exitStatusOf(const std::function<void()>& command);

/// Prints a line to stderr that is no failure.
void printNote(const QByteArray& text);

/// Throws a CommandFailure unless everything that was printed to standard output so far reached it.
void requirePrinted(bool isFine);
