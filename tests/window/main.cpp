// SPDX-License-Identifier: MIT
// Runs the window's tests within one application that looks and speaks like the program.
#include "window/application.h"

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    // The build asks for the tests' names, where there may be no screen.
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    window::Toolkit application(argc, argv);
    return RUN_ALL_TESTS();
}
