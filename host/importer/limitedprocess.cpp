// SPDX-License-Identifier: MIT
#include "host/importer/limitedprocess.h"

#include <sys/resource.h>
#include <unistd.h>

void LimitedProcess::setupChildProcess()
{
    setpgid(0, 0);
    const rlimit noCoreFile = {0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);
#if !defined(__SANITIZE_ADDRESS__)  // AddressSanitizer reserves terabytes of addresses.
    constexpr rlim_t addressLimit = rlim_t(2) << 30;
    const rlimit memory = {addressLimit, addressLimit};
    setrlimit(RLIMIT_AS, &memory);
#endif
}
