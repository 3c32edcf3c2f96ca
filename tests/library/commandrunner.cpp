// SPDX-License-Identifier: MIT
// A program to be killed: opens the library argv[1] and carries out the series of requests of the seed argv[2], one
// after the answer to the other, saying "." on its standard output after each answer, until it has carried out 60 or
// is killed: at its write number argv[3] (from 0) to a database, if that is given. The seed 0 only opens the library.
#include "tests/library/commandscript.h"
#include "tests/library/diskfault.h"

#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>
#include <optional>

namespace {

constexpr int mostAnswers = 60;

int carryOut(Library& library, quint32 seed)
{
    int answers = 0;
    std::optional<CommandScript> script;
    script.emplace(&library, seed, [&] {
        if (::write(STDOUT_FILENO, ".", 1) == 1 && ++answers < mostAnswers)
            script->next();
        else
            QCoreApplication::quit();
    });
    script->next();
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 3)
        return 2;
    DiskFault fault;
    if (argc > 3)
        fault.set(DiskFault::Kind::Kill, QByteArray(argv[3]).toInt());
    QString error;
    const auto library = Library::open(QString::fromLocal8Bit(argv[1]), &error);
    if (!library) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    const quint32 seed = QByteArray(argv[2]).toUInt();
    return seed == 0 ? 0 : carryOut(*library, seed);
}
