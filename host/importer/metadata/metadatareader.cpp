// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadatareader.h"

#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/picturekeywords.h"

#include <QByteArray>

#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

// Seconds. The import ends a reader that takes too long; this ends one whose import is gone.
constexpr unsigned orphanLimit = 30;

bool write(const QByteArray& line)
{
    return fwrite(line.constData(), 1, size_t(line.size()), stdout) == size_t(line.size()) && fflush(stdout) == 0;
}

}  // namespace

int runMetadataReader()
{
    setUpExiv2();
    if (!write(metadataReaderReady))
        return 1;
    std::string path;
    while (std::getline(std::cin, path, '\0')) {
        alarm(orphanLimit);
        const MetadataAnswer answer = readKeywords(QByteArray::fromStdString(path));
        alarm(0);
        if (!write(answer.toLine()))
            return 1;
    }
    return 0;
}
