// Each start of the program has random values of its own.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "platform/desktop.h"

namespace {

TEST(Random, ValuesDifferFromStartToStartAndLieBelowOne) {
    using Values = std::array<double, 20>;
    void* const shared = mmap(nullptr, 2 * sizeof(Values), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto* const starts = static_cast<Values*>(shared);
    for (int start = 0; start < 2; ++start) {
        if (fork() == 0) {
            platform::seedRandom();
            for (double& value : starts[start]) value = platform::random();
            _exit(0);
        }
        wait(nullptr);
    }
    EXPECT_NE(starts[0], starts[1]);
    for (const double value : starts[0]) {
        EXPECT_GE(value, 0);
        EXPECT_LT(value, 1);
    }
    EXPECT_GT(starts[0].back(), 0) << "it was never drawn";
}

}  // namespace
