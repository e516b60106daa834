// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/Confinement.h"

#include "codecs/DecoderProtocol.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <linux/capability.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarsel::decoder {

namespace {

#if defined __SANITIZE_ADDRESS__ || defined __SANITIZE_THREAD__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

constexpr rlim_t memoryLimit = rlim_t(4) << 30;
constexpr rlim_t descriptorLimit = 16;

bool setHardLimit(decltype(RLIMIT_AS) resource, rlim_t amount) {
    const rlimit both{amount, amount};
    return ::setrlimit(resource, &both) == 0;
}

bool limitResources() {
    bool all = setHardLimit(RLIMIT_CORE, 0);
    all &= setHardLimit(RLIMIT_NOFILE, descriptorLimit);
    all &= setHardLimit(RLIMIT_FSIZE, 0);
    all &= setHardLimit(RLIMIT_NPROC, 0);
    if (!isSanitized)
        all &= setHardLimit(RLIMIT_AS, memoryLimit);
    return all;
}

/// System calls whose arguments can do no harm.
constexpr std::initializer_list<int> harmlessCalls = {
    SCMP_SYS(recvmsg),      SCMP_SYS(sendmsg),      SCMP_SYS(close),          SCMP_SYS(read),
    SCMP_SYS(write),        SCMP_SYS(writev),       SCMP_SYS(munmap),         SCMP_SYS(mremap),
    SCMP_SYS(brk),          SCMP_SYS(madvise),      SCMP_SYS(futex),          SCMP_SYS(getrusage),
    SCMP_SYS(getrandom),    SCMP_SYS(getpid),       SCMP_SYS(gettid),         SCMP_SYS(clock_gettime),
    SCMP_SYS(rt_sigreturn), SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask), SCMP_SYS(restart_syscall),
    SCMP_SYS(sched_yield),  SCMP_SYS(exit),         SCMP_SYS(exit_group),
};

/// 0 when the rules are in force.
int addRules(scmp_filter_ctx filter) {
    int failed = 0;
    const auto allow = [&](int call) { failed |= ::seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0); };
    const auto allowIf = [&](int call, scmp_arg_cmp condition) {
        failed |= ::seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 1, condition);
    };
    for (const int call : harmlessCalls)
        allow(call);
    // Memory that is never executed; a look at the limits; signals of this process alone.
    for (const int call : {SCMP_SYS(mmap), SCMP_SYS(mprotect)})
        allowIf(call, SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0));
    allowIf(SCMP_SYS(prlimit64), SCMP_A2(SCMP_CMP_EQ, 0));
    allowIf(SCMP_SYS(tgkill), SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(::getpid())));
    // Qt's threads, which wait, and this one share the memory.
    failed |= ::seccomp_attr_set(filter, SCMP_FLTATR_CTL_TSYNC, 1);
    return failed ? failed : ::seccomp_load(filter);
}

bool limitSystemCalls() {
    if (isSanitized)
        return true;
    const scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_KILL_PROCESS);
    if (!filter)
        return false;
    const int failed = addRules(filter);
    ::seccomp_release(filter);
    return failed == 0;
}

} // namespace

bool dropPrivileges() {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return ::syscall(SYS_capset, &header, none) == 0 && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0;
}

bool endWithParent() {
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0;
}

std::uint32_t confineProcess() {
    std::uint32_t missing = 0;
    const auto require = [&](bool isLocked, DecoderLock lock) {
        missing |= isLocked ? 0U : std::uint32_t(lock);
    };
    require(::close_range(decoderSocket + 1, ~0U, 0) == 0, DescriptorsLock);
    require(limitResources(), LimitsLock);
    require(limitSystemCalls(), SystemCallsLock);
    return missing;
}

} // namespace tarsel::decoder
