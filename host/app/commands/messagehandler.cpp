// SPDX-License-Identifier: MIT
#include "host/app/commands/messagehandler.h"

#include "host/importer/escapedtext.h"

#include <QString>

#include <cstdio>

namespace {

void printMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // Whoever calls this ends the program itself after a fatal message.
    std::fprintf(stderr, "%s\n", escapedText(qFormatLogMessage(type, context, message).toUtf8()).constData());
}

}  // namespace

void installMessageHandler()
{
    qInstallMessageHandler(printMessage);
}
