// SPDX-License-Identifier: MIT
#include "tests/importer/readermain.h"

#include "host/app/commands/commandline.h"
#include "host/app/commands/importcommand.h"
#include "host/app/commands/listcommand.h"
#include "host/importer/metadata/confinement.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/picturekeywords.h"
#include "host/importer/metadata/readermessage.h"
#include "host/importer/metadata/readerpool.h"
#include "host/importer/metadata/readerservice.h"
#include "host/importer/metadata/thumbnailreader.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Names what a process that was taken over can do and should not.
QByteArray liberties()
{
    QByteArray found;
    const auto tried = [&found](const char* what, long result) {
        if (result >= 0 || errno == ENOENT)
            found.append(what).append(' ');
    };
    tried("open", open("/dev/null", O_RDONLY));
    tried("create", open("/tmp", O_TMPFILE | O_WRONLY, 0600));
    tried("socket", socket(AF_UNIX, SOCK_STREAM, 0));
    tried("exec", execl("/nowhere/at/all", "", nullptr));
    tried("kill", kill(getppid(), 0));
    tried("code", mmap(nullptr, 1, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED ? 0 : -1);
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    tried("fork", child);
    const size_t tooMuch = size_t(confinement::memoryLimit) + 1;
    void* const large = mmap(nullptr, tooMuch, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    tried("memory", large != MAP_FAILED ? 0 : -1);
    if (large != MAP_FAILED)
        munmap(large, tooMuch);
    return found;
}

QByteArray harmfulAnswer(const ReaderRequest& request)
{
    if (request.name.contains("crash"))
        abort();
    while (request.name.contains("hang")) {
    }
    if (request.name.contains("babble"))
        return "{\"keywords\":7}\n";
    if (request.name.contains("endless"))
        return readKeywords(request.file.number(), request.name).toLine() +
               QByteArray(readermessage::longestAnswer, ' ');
    if (request.name.contains("liberties")) {
        MetadataAnswer answer;
        answer.keywords.append(QStringLiteral("can: ") + QString::fromLatin1(liberties()));
        return answer.toLine();
    }
    return readKeywords(request.file.number(), request.name).toLine();
}

int runHarmfulReader()
{
    confinement::limit();
    setUpExiv2();
    _exit(readerservice::serve(harmfulAnswer));
}

int runCommand(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const CommandLine commandLine = CommandLine::parse(argc, argv);
    if (commandLine.action == CommandLine::Action::Import)
        return runImportCommand(commandLine);
    return runListCommand(commandLine);
}

int runReading(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    ReaderPool pool({});
    pool.read({argv[2]});
    return QCoreApplication::exec();
}

}  // namespace

int runAsHelper(int argc, char** argv)
{
    if (argc < 2)
        return -1;
    const bool isHarmful = qEnvironmentVariableIsSet(harmfulReaderVariable);
    if (std::strcmp(argv[1], metadataReaderOption) == 0)
        return isHarmful ? runHarmfulReader() : runMetadataReader();
    if (std::strcmp(argv[1], thumbnailReaderOption) == 0)
        return isHarmful ? runHarmfulReader() : runThumbnailReader(argc, argv);
    if (std::strcmp(argv[1], commandArgument) == 0)
        return runCommand(argc - 1, argv + 1);
    if (argc > 2 && std::strcmp(argv[1], readArgument) == 0)
        return runReading(argc, argv);
    return -1;
}
