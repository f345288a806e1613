#include <gtest/gtest.h>

#include <QCoreApplication>
#include <string_view>

#include "CrashingChild.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 4 && argv[1] == pellumar::test::kChildArgument) {
        pellumar::test::fetchAndActivateForEver(argv[2], argv[3]);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
