#include <gtest/gtest.h>

#include <QGuiApplication>

#include "InstanceChild.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // One bus stands for both.
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    const QGuiApplication application(argc, argv);
    if (const auto result = pellumar::test::runInstanceChild(QGuiApplication::arguments())) {
        return *result;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
