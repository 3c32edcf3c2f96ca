// SPDX-License-Identifier: MIT
#include "tests/importer/readermain.h"

#include "host/app/commandline.h"
#include "host/app/importcommand.h"
#include "host/app/listcommand.h"
#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/picturekeywords.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

void write(const QByteArray& bytes)
{
    fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    fflush(stdout);
}

int runHarmfulReader()
{
    setUpExiv2();
    write(metadataReaderReady);
    std::string path;
    while (std::getline(std::cin, path, '\0')) {
        const QByteArray name = QByteArray::fromStdString(path);
        if (name.contains("crash"))
            abort();
        while (name.contains("hang"))
            pause();
        write(name.contains("babble") ? QByteArray("{\"keywords\":7}\n") : readKeywords(name).toLine());
    }
    return 0;
}

int runCommand(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const CommandLine commandLine = CommandLine::parse(argc, argv);
    if (commandLine.action == CommandLine::Action::Import)
        return runImportCommand(commandLine);
    return runListCommand(commandLine);
}

}  // namespace

int runAsHelper(int argc, char** argv)
{
    if (argc < 2)
        return -1;
    if (std::strcmp(argv[1], metadataReaderOption) == 0)
        return qEnvironmentVariableIsSet(harmfulReaderVariable) ? runHarmfulReader() : runMetadataReader();
    if (std::strcmp(argv[1], commandArgument) == 0)
        return runCommand(argc - 1, argv + 1);
    return -1;
}
