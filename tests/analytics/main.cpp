#include <gtest/gtest.h>

#include <QCoreApplication>

#include "Children.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    int exitCode = 0;
    if (pellumar::test::runAsChild(argc, argv, exitCode)) {
        return exitCode;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
