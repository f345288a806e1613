#include "platform/DisplayText.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace pellumar {
namespace {

TEST(DisplayText, SizesHaveOneDecimalAndTimesTheHour) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(sizeText(1), "1 byte");
    EXPECT_EQ(sizeText(12), "12 bytes");
    EXPECT_EQ(sizeText(1'000'000), "1.0 MB");
    EXPECT_EQ(sizeText(5'260'000'000), "5.3 GB");
    EXPECT_EQ(timeText({{2024, 2, 29}, {17, 5}}), "29/02/2024 17:05");
    QLocale::setDefault(QLocale::system());
}

}  // namespace
}  // namespace pellumar
