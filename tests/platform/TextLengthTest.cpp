#include "platform/TextLength.h"

#include <gtest/gtest.h>

namespace pellumar {
namespace {

const QString kRocket = QString::fromUtf8("\xF0\x9F\x9A\x80");  // U+1F680, outside of the BMP
const QString kAccented = QString::fromUtf8("e\xCC\x81");       // e with a combining acute

TEST(TextLength, CountsInTheUnitsThatACutKeeps) {
    EXPECT_EQ(textLength(kRocket), 2);
    EXPECT_EQ(textLength(kAccented), 2);
    for (const QString& text : {kRocket.repeated(5), kAccented.repeated(5), QString(10, u'x')}) {
        EXPECT_EQ(textCutTo(text, textLength(text)), text);
        for (qsizetype most = 0; most <= textLength(text) + 1; ++most) {
            const QString cut = textCutTo(text, most);
            EXPECT_LE(textLength(cut), most);
            EXPECT_TRUE(text.startsWith(cut));
            EXPECT_TRUE(cut.isValidUtf16()) << most;
        }
    }
    EXPECT_EQ(textCutTo(kRocket + kRocket, 3), kRocket);
    EXPECT_EQ(textCutTo(kAccented + kAccented, 3), kAccented + 'e');
}

}  // namespace
}  // namespace pellumar
