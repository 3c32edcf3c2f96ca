// SPDX-License-Identifier: MIT
#include "host/importer/metadata/limitedprocess.h"

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int lessUrgent = 10;  // than the program's own window, which shares the cores with all readers

}  // namespace

void LimitedProcess::setupChildProcess()
{
    setpgid(0, 0);
    setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + lessUrgent);
    const rlimit noCoreFile = {0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);
#if !defined(__SANITIZE_ADDRESS__)  // AddressSanitizer reserves terabytes of addresses.
    constexpr rlim_t addressLimit = rlim_t(2) << 30;
    const rlimit memory = {addressLimit, addressLimit};
    setrlimit(RLIMIT_AS, &memory);
#endif
}
