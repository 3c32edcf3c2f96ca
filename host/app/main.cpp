// SPDX-License-Identifier: MIT
#include "host/app/commands/changecommand.h"
#include "host/app/commands/commandline.h"
#include "host/app/commands/descriptorlimit.h"
#include "host/app/commands/findcommand.h"
#include "host/app/commands/importcommand.h"
#include "host/app/commands/listcommand.h"
#include "host/app/commands/messagehandler.h"
#include "host/app/hostapplication.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/thumbnailreader.h"
#include "host/library/records/escapedtext.h"

#include <QApplication>
#include <QThread>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace {

// QSettings derives its path from these names.
void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vellum"));
    QCoreApplication::setApplicationName(QStringLiteral("vellum"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELLUM_VERSION));
}

int print(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const bool written = std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout) ==
                             static_cast<size_t>(bytes.size()) &&
                         std::fflush(stdout) == 0;
    if (written)
        return 0;
    std::fprintf(stderr, "vellum: %s\n", qt_error_string(errno).toLocal8Bit().constData());
    return 1;
}

bool hasDescriptors(const CommandLine& commandLine)
{
    const int readers = commandLine.action != CommandLine::Action::Import && commandLine.needsNoDisplay()
                            ? 0
                            : QThread::idealThreadCount();
    const QString lack = lackOfDescriptors(readers);
    if (!lack.isEmpty())
        std::fprintf(stderr, "vellum: %s\n", lack.toLocal8Bit().constData());
    return lack.isEmpty();
}

int runWithoutDisplay(const CommandLine& commandLine, int argc, char** argv)
{
    switch (commandLine.action) {
    case CommandLine::Action::ReadMetadata:
        return runMetadataReader();
    case CommandLine::Action::ReadThumbnails:
        return runThumbnailReader(argc, argv);
    case CommandLine::Action::ShowHelp:
        return print(CommandLine::helpText());
    case CommandLine::Action::ShowVersion:
        return print(CommandLine::versionText());
    default:
        break;
    }
    if (!hasDescriptors(commandLine))
        return 1;
    const QCoreApplication application(argc, argv);
    switch (commandLine.action) {
    case CommandLine::Action::Import:
        return runImportCommand(commandLine);
    case CommandLine::Action::Find:
        return runFindCommand(commandLine);
    case CommandLine::Action::Change:
        return runChangeCommand(commandLine);
    default:
        return runListCommand(commandLine);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    nameApplication();
    installMessageHandler();
    const CommandLine commandLine = CommandLine::parse(argc, argv);
    if (!commandLine.error.isEmpty()) {
        std::fprintf(stderr, "vellum: %s\n", escapedText(commandLine.error.toUtf8()).constData());
        return CommandLine::exitUsage;
    }
    if (commandLine.needsNoDisplay())
        return runWithoutDisplay(commandLine, argc, argv);
    if (!hasDescriptors(commandLine))
        return 1;
    const bool hasDisplay = HostApplication::hasDisplay();
    HostApplication::prepare(commandLine);
    auto application = std::make_unique<QApplication>(argc, argv);
    if (HostApplication::hasOtherScale(commandLine)) {
        application.reset();
        HostApplication::prepare(commandLine);
        application = std::make_unique<QApplication>(argc, argv);
    }
    HostApplication host(commandLine, hasDisplay);
    return host.run();
}
