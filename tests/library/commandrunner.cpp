// SPDX-License-Identifier: MIT
// A program to be killed: opens the library argv[1] and carries out the series of requests of the seed argv[2], one
// after the answer to the other, saying "." on its standard output after each answer, until it is killed. With
// "migrate" instead of a seed, it says "." and brings the library to the version of the tests.
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "tests/library/commandscript.h"
#include "tests/library/testmigration.h"

#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>

namespace {

int migrate(const QString& path)
{
    try {
        LibraryDatabase database(path, LibraryDatabase::Access::ReadWrite);
        if (::write(STDOUT_FILENO, ".", 1) != 1)
            return 1;
        libraryschema::migrate(database, testmigration::steps());
        return 0;
    } catch (const LibraryError& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.message()));
        return 1;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3)
        return 2;
    if (qstrcmp(argv[2], "migrate") == 0)
        return migrate(QString::fromLocal8Bit(argv[1]));
    QString error;
    const auto library = Library::open(QString::fromLocal8Bit(argv[1]), &error);
    if (!library) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    CommandScript script(library.get(), QByteArray(argv[2]).toUInt(), [&script] {
        if (::write(STDOUT_FILENO, ".", 1) == 1)
            script.next();
    });
    script.next();
    return QCoreApplication::exec();
}
