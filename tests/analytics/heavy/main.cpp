#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdlib>

#include "LoggingChild.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 6 && argv[1] == pellumar::test::kChildArgument) {
        pellumar::test::logForEver(argv[2], argv[3], std::atoi(argv[4]), argv[5]);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
