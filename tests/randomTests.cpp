// Each start of the program has random values of its own.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "platform/desktop.h"

namespace {

using Values = std::array<double, 20>;

/// The first values of a program that has seeded them; each call is a start of its own.
Values valuesOfAStart() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) ADD_FAILURE() << "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        platform::seedRandom();
        Values values{};
        for (double& value : values) value = platform::random();
        _exit(write(ends[1], values.data(), sizeof(values)) == sizeof(values) ? 0 : 1);
    }
    Values values{};
    EXPECT_EQ(read(ends[0], values.data(), sizeof(values)), static_cast<ssize_t>(sizeof(values)));
    waitpid(child, nullptr, 0);
    for (const int end : ends) close(end);
    return values;
}

TEST(Random, ValuesDifferFromStartToStartAndLieBelowOne) {
    const Values first = valuesOfAStart();
    EXPECT_NE(first, valuesOfAStart());
    for (const double value : first) {
        EXPECT_GE(value, 0);
        EXPECT_LT(value, 1);
    }
}

}  // namespace
