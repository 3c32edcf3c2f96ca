// SPDX-License-Identifier: MIT
#include "host/app/commands/messagehandler.h"

#include "host/library/records/escapedtext.h"

#include <QString>

#include <cstdio>

namespace {

void printMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // Qt aborts after the handler of a fatal message.
    std::fprintf(stderr, "%s\n", escapedText(qFormatLogMessage(type, context, message).toUtf8()).constData());
}

}  // namespace

void installMessageHandler()
{
    qInstallMessageHandler(printMessage);
}
