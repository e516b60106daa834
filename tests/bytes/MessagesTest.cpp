// SPDX-License-Identifier: GPL-3.0-or-later
#include "bytes/Messages.h"

#include <array>
#include <cstdint>
#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace tarsel;

namespace {

int openDescriptors() {
    int count = 0;
    DIR* folder = ::opendir("/proc/self/fd");
    while (::readdir(folder))
        ++count;
    ::closedir(folder);
    return count;
}

struct Ends {
    Ends() {
        int both[2] = {-1, -1};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, both), 0);
        ours.reset(both[0]);
        theirs.reset(both[1]);
    }
    Descriptor ours, theirs;
};

} // namespace

TEST(Messages, CountOnlyWithTheExpectedLengthAndDescriptorsAndLeaveNoneOpen) {
    const std::array<std::byte, 16> sent = {std::byte(1)};
    const struct {
        const char* what;
        std::size_t length;                     ///< of 8 expected
        std::initializer_list<int> descriptors; ///< of 2 expected
        bool counts;
    } cases[] = {
        {"as expected", 8, {0, 1}, true},
        {"shorter", 7, {0, 1}, false},
        {"longer", 9, {0, 1}, false},
        {"none", 8, {}, false},
        {"one descriptor", 8, {0}, false},
        {"three", 8, {0, 1, 2}, false},
        {"all that fit", 8, {0, 1, 2, 0, 1, 2, 0, 1}, false},
    };
    Ends ends;
    const int before = openDescriptors();
    for (const auto& c : cases) {
        ASSERT_TRUE(sendMessage(ends.theirs.number(), std::span(sent).first(c.length), c.descriptors))
            << c.what;
        std::uint64_t record = 0;
        std::vector<Descriptor> descriptors;
        EXPECT_EQ(receiveRecord(ends.ours.number(), record, descriptors, 2), c.counts) << c.what;
        EXPECT_EQ(descriptors.size(), c.counts ? 2u : 0u) << c.what;
        descriptors.clear();
        EXPECT_EQ(openDescriptors(), before) << c.what;
    }
    ends.theirs.reset();
    std::uint64_t record = 0;
    std::vector<Descriptor> descriptors;
    EXPECT_FALSE(receiveRecord(ends.ours.number(), record, descriptors, 0)) << "the other end is closed";
    EXPECT_FALSE(sendRecord(ends.ours.number(), record));
}
