// SPDX-License-Identifier: MIT
#include "host/app/commands/descriptorlimit.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <unistd.h>

#include <vector>

namespace {

// Event loops of three threads, three connections to the library with log and index, the state of this computer.
constexpr int ofTheProgram = 24;
// A socket, both ends of it during the start, and the files that are sent ahead.
constexpr int ofEachReader = 10;

struct DescriptorLimit
{
    Q_DECLARE_TR_FUNCTIONS(DescriptorLimit)
};

}  // namespace

QString lackOfDescriptors(int readers)
{
    const int needed = ofTheProgram + readers * ofEachReader;
    std::vector<int> opened;
    while (int(opened.size()) < needed) {
        const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (descriptor < 0)
            break;
        opened.push_back(descriptor);
    }
    const bool enough = int(opened.size()) == needed;
    for (const int descriptor : opened)
        close(descriptor);
    return enough ? QString()
                  : DescriptorLimit::tr("This process may open too few files; an import needs %1.").arg(needed);
}
