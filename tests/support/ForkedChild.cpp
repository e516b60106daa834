// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ForkedChild.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tarsel::test {

namespace {

void install(std::vector<sock_filter> program) {
    const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        ::_exit(98);
}

sock_filter load(size_t offset) {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, unsigned(offset));
}

sock_filter answer(unsigned action) {
    return BPF_STMT(BPF_RET | BPF_K, action);
}

} // namespace

int inChild(const std::function<int()>& steps) {
    const pid_t child = ::fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
        try {
            ::_exit(steps());
        } catch (...) {
            ::_exit(99);
        }
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

void failSystemCall(int number, int errnoValue) {
    install({load(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, unsigned(number), 0, 1),
             answer(SECCOMP_RET_ERRNO | unsigned(errnoValue)), answer(SECCOMP_RET_ALLOW)});
}

void failSystemCall(int number, int errnoValue, int argument, unsigned flags) {
    install({load(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, unsigned(number), 0, 3),
             load(offsetof(seccomp_data, args) + size_t(argument) * sizeof(__u64)),
             BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, flags, 0, 1),
             answer(SECCOMP_RET_ERRNO | unsigned(errnoValue)), answer(SECCOMP_RET_ALLOW)});
}

void dieAtSystemCall(int number) {
    install({load(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, unsigned(number), 0, 1),
             answer(SECCOMP_RET_KILL_PROCESS), answer(SECCOMP_RET_ALLOW)});
}

void refuseUnnamedFiles() {
    failSystemCall(SYS_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY);
}

} // namespace tarsel::test
