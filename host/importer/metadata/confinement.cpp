// SPDX-License-Identifier: MIT
#include "host/importer/metadata/confinement.h"

#include <QByteArray>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <linux/landlock.h>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int lessUrgent = 10;  // than the program's own window, which shares the cores with all readers

// Work on memory, on what is open, on threads that exist, and with the clock.
constexpr int plainCalls[] = {SCMP_SYS(brk),
                              SCMP_SYS(clock_getres),
                              SCMP_SYS(clock_gettime),
                              SCMP_SYS(clock_nanosleep),
                              SCMP_SYS(close),
                              SCMP_SYS(exit),
                              SCMP_SYS(exit_group),
                              SCMP_SYS(fadvise64),
                              SCMP_SYS(fstat),
                              SCMP_SYS(futex),
                              SCMP_SYS(getpid),
                              SCMP_SYS(getrandom),
                              SCMP_SYS(gettid),
                              SCMP_SYS(gettimeofday),
                              SCMP_SYS(lseek),
                              SCMP_SYS(madvise),
                              SCMP_SYS(mremap),
                              SCMP_SYS(munmap),
                              SCMP_SYS(nanosleep),
                              SCMP_SYS(poll),
                              SCMP_SYS(ppoll),
                              SCMP_SYS(pread64),
                              SCMP_SYS(read),
                              SCMP_SYS(readv),
                              SCMP_SYS(recvmsg),
                              SCMP_SYS(restart_syscall),
                              SCMP_SYS(rseq),
                              SCMP_SYS(rt_sigaction),
                              SCMP_SYS(rt_sigprocmask),
                              SCMP_SYS(rt_sigreturn),
                              SCMP_SYS(sched_getaffinity),
                              SCMP_SYS(sched_yield),
                              SCMP_SYS(sendto),
                              SCMP_SYS(set_robust_list),
                              SCMP_SYS(sigaltstack),
                              SCMP_SYS(write),
                              SCMP_SYS(writev)};

struct ReleaseFilter
{
    void operator()(scmp_filter_ctx filter) const { seccomp_release(filter); }
};
using Filter = std::unique_ptr<void, ReleaseFilter>;

// Everything else fails with EPERM, so that a picture which names a file is shown without it.
int addRules(scmp_filter_ctx filter)
{
    int failure = 0;
    const auto allow = [&](int call, const auto&... conditions) {
        const int result = seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, sizeof...(conditions), conditions...);
        failure = failure != 0 ? failure : result;
    };
    for (const int call : plainCalls)
        allow(call);
    // As fstat(), which the C library and Qt build from them.
    allow(SCMP_SYS(statx), SCMP_A2(SCMP_CMP_MASKED_EQ, AT_EMPTY_PATH, AT_EMPTY_PATH));
    allow(SCMP_SYS(newfstatat), SCMP_A3(SCMP_CMP_MASKED_EQ, AT_EMPTY_PATH, AT_EMPTY_PATH));
    allow(SCMP_SYS(mmap), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0));
    allow(SCMP_SYS(mprotect), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0));
    allow(SCMP_SYS(fcntl), SCMP_A1(SCMP_CMP_EQ, F_GETFL));
    // abort(), and nobody else.
    allow(SCMP_SYS(tgkill), SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(getpid())));
    return failure;
}

}  // namespace

void confinement::limit()
{
    close_range(STDERR_FILENO + 1, ~0U, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + lessUrgent);
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
    setrlimit(RLIMIT_FSIZE, &none);
#if !defined(__SANITIZE_ADDRESS__)  // AddressSanitizer reserves terabytes.
    const rlimit memory = {memoryLimit, memoryLimit};
    setrlimit(RLIMIT_DATA, &memory);
#endif
}

void confinement::closeFileSystem()
{
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return;
    landlock_ruleset_attr rules = {};
    rules.handled_access_fs = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;  // all of the first version
    const int ruleset = int(syscall(SYS_landlock_create_ruleset, &rules, sizeof rules, 0));
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    syscall(SYS_landlock_restrict_self, ruleset, 0);
    close(ruleset);
}

QByteArray confinement::closeSystem()
{
    const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    if (!filter)
        return "seccomp_init";
    int failure = seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1);
    if (failure == 0)
        failure = addRules(filter.get());
    if (failure == 0)
        failure = seccomp_load(filter.get());
    return failure == 0 ? QByteArray() : QByteArray("seccomp: ").append(strerror(-failure));
}
