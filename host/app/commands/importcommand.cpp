// SPDX-License-Identifier: MIT
#include "host/app/commands/importcommand.h"

#include "host/app/commands/commandline.h"
#include "host/app/commands/interruptsignal.h"
#include "host/app/commands/librarychoice.h"
#include "host/importer/folderwalk.h"
#include "host/importer/importer.h"
#include "host/library/library.h"
#include "host/library/records/escapedtext.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QSettings>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {

// As shells report a program terminated by SIGINT: 128 plus its number.
constexpr int exitInterrupted = 130;

/// Progress in one line of the terminal, rewritten in place; nothing if stderr is no terminal.
class ProgressLine
{
public:
    void show(int done, int found)
    {
        if (!m_isTerminal)
            return;
        fprintf(stderr, "\r\033[K%s",
                qUtf8Printable(QCoreApplication::translate("ImportCommand", "%1 of %2 files").arg(done).arg(found)));
        fflush(stderr);
        m_shown = true;
    }
    void clear()
    {
        if (m_shown)
            fputs("\r\033[K", stderr);
        m_shown = false;
    }

private:
    bool m_isTerminal = isatty(STDERR_FILENO) == 1;
    bool m_shown = false;
};

void printError(const QByteArray& text)
{
    fprintf(stderr, "vellum: %s\n", escapedText(text).constData());
}

int statusOf(const ImportSummary& summary)
{
    if (summary.noSuchFolder)
        return CommandLine::exitUsage;
    if (!summary.error.isEmpty())
        return 1;
    return summary.cancelled ? exitInterrupted : 0;
}

/// Returns false if they could not be written.
bool printTotals(const ImportSummary& summary)
{
    const int printed =
        printf("files: %lld, tags: %lld, links: %lld, skipped: %d, unreadable: %d, missing: %d, away: %d\n",
               summary.totals.files, summary.totals.tags, summary.totals.links, summary.skipped, summary.unreadable,
               summary.missing, summary.away);
    return printed >= 0 && fflush(stdout) == 0;
}

ImportSummary importFolder(Library& library, const CommandLine& commandLine)
{
    Importer importer(&library);
    InterruptSignal interrupt;
    QEventLoop loop;
    ProgressLine line;
    ImportSummary result;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &importer, &Importer::cancel);
    QObject::connect(&importer, &Importer::progress, &loop, [&line](int done, int found) { line.show(done, found); });
    QObject::connect(&importer, &Importer::skipped, &loop, [&line](const QByteArray& path, const QString& reason) {
        line.clear();
        printError(path + ": " + reason.toUtf8());
    });
    QObject::connect(&importer, &Importer::finished, &loop, [&result, &loop](const ImportSummary& summary) {
        result = summary;
        loop.quit();
    });
    ImportOptions options;
    options.rereads = commandLine.reread;
    options.forgetsMissing = commandLine.forgetMissing;
    importer.start(commandLine.folder, options);
    loop.exec();
    line.clear();
    return result;
}

}  // namespace

int runImportCommand(const CommandLine& commandLine)
{
    // Checked first, so that a wrong name creates no library.
    if (!canonicalFolder(commandLine.folder)) {
        printError("There is no folder " + commandLine.folder);
        return CommandLine::exitUsage;
    }
    const LibraryChoice choice = LibraryChoice::make(commandLine, QSettings());
    if (!choice.error.isEmpty()) {
        printError(escapedText(choice.error.toUtf8()));
        return CommandLine::exitUsage;
    }
    QString error;
    const std::unique_ptr<Library> library = Library::open(QFile::decodeName(choice.file), &error);
    if (!library) {
        printError(error.toUtf8());
        return 1;
    }
    for (const QString& note : library->takeUpgradeNotices())
        printError(escapedText(note.toUtf8()));
    choice.mountMoved(library->id());
    const ImportSummary summary = importFolder(*library, commandLine);
    if (!summary.error.isEmpty()) {
        printError(escapedText(summary.error.toUtf8()));
    } else if (!printTotals(summary)) {
        printError(qt_error_string(errno).toUtf8());
        return 1;
    }
    return statusOf(summary);
}
