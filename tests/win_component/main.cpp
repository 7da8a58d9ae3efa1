// Every test runs in a single-threaded apartment, as hosts with a user interface do.
#include <windows.h>
#include <gtest/gtest.h>
#include <ole2.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    OleInitialize(nullptr);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
