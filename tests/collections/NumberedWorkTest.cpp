// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/NumberedWork.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/ForkedChild.h"

#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <numeric>
#include <semaphore>
#include <sys/syscall.h>

using namespace tarsel;
using namespace tarsel::test;

TEST(NumberedWork, PreferredNumbersComeFirstInTheirOrderAndDroppedOnesNever) {
    std::counting_semaphore<> begun(0), goOn(0);
    std::mutex mutex;
    std::vector<int> order;
    NumberedWork work([&](int number) {
        {
            const std::lock_guard lock(mutex);
            order.push_back(number);
        }
        begun.release();
        goOn.acquire();
    });
    const int threads = int(std::clamp(std::thread::hardware_concurrency(), 1u, 4u));
    std::vector<int> numbers(size_t(threads) + 5);
    std::iota(numbers.begin(), numbers.end(), 0);
    work.add({numbers.begin(), numbers.begin() + threads});
    for (int i = 0; i < threads; ++i) // each thread has one
        begun.acquire();
    work.add(numbers);
    work.drop(threads + 1);
    work.prefer({threads + 4, threads + 2});
    order.clear();
    for (int i = 0; i < 3; ++i) {
        goOn.release();
        begun.acquire();
    }
    EXPECT_EQ(order, (std::vector<int>{threads + 4, threads + 2, 0}));
    goOn.release(2 * threads + 5);
}

TEST(NumberedWork, WithoutASingleThreadIsOutOfMemoryAndDoesNotWait) {
    const int number = inChild([] {
        failSystemCall(SYS_clone3, EAGAIN);
        failSystemCall(SYS_clone, EAGAIN);
        return int(errorNumberOf([] { NumberedWork work([](int) {}); }));
    });
    EXPECT_EQ(number, int(ErrorNumber::OutOfMemory));
}
