// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadatareader.h"

#include "host/importer/metadata/confinement.h"
#include "host/importer/metadata/picturekeywords.h"
#include "host/importer/metadata/readermessage.h"
#include "host/importer/metadata/readerservice.h"

int runMetadataReader()
{
    confinement::limit();
    setUpExiv2();
    _exit(readerservice::serve(
        [](const ReaderRequest& request) { return readKeywords(request.file.number(), request.name).toLine(); }));
}
