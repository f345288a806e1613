#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickStyle>

#include "app/App.h"
#include "app/Language.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QQuickStyle::setStyle("Basic");
    const QGuiApplication application(argc, argv);
    const pellumar::Language language{QLocale(QLocale::English)};
    pellumar::registerLayouts();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
