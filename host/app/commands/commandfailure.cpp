// SPDX-License-Identifier: MIT
#include "host/app/commands/commandfailure.h"

#include "host/library/records/escapedtext.h"

#include <QString>

#include <cerrno>
#include <cstdio>

int exitStatusOf(const std::function<void()>& command)
{
    try {
        command();
        return 0;
    } catch (const CommandFailure& failure) {
        printNote(failure.reason);
        return failure.status;
    }
}

void printNote(const QByteArray& text)
{
    fprintf(stderr, "vellum: %s\n", escapedText(text).constData());
}

void requirePrinted(bool isFine)
{
    if (!isFine || fflush(stdout) != 0)
        throw CommandFailure{1, qt_error_string(errno).toUtf8()};
}
