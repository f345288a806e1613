#include "platform/remoteconfig/FlagEvaluation.h"

#include <gtest/gtest.h>

#include "platform/RetryAfter.h"

namespace pellumar {
namespace {

// What the value `json` reads as; nothing if the flag is passed over.
std::optional<QString> textOf(const QByteArray& json) {
    const auto values = parseEvaluation(R"({"flags":[{"key":"key","value":)" + json + "}]}");
    return values && values->contains("key") ? std::optional(values->value("key")) : std::nullopt;
}

TEST(FlagEvaluation, EveryTypeHasItsText) {
    const std::pair<const char*, const char*> texts[] = {
        {"true", "true"},
        {"false", "false"},
        {"\" Gr\\u00fc\\u00dfe \"", " Grüße "},
        {"\"\"", ""},
        {"42", "42"},
        {"-0", "0"},
        {"9007199254740993", "9007199254740993"},
        {"9223372036854775807", "9223372036854775807"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"9223372036854775808", "9223372036854776000"},
        {"100000000000000000", "100000000000000000"},
        {"0.1", "0.1"},
        {"4.25", "4.25"},
        {"1e3", "1000"},
        {"1e300", "1e+300"},
        {R"({ "b": [1, 9007199254740993], "a": null })", R"({"a":null,"b":[1,9007199254740993]})"},
    };
    for (const auto& [json, text] : texts) {
        EXPECT_EQ(textOf(json).value_or("nothing").toStdString(), text) << json;
    }
    EXPECT_FALSE(textOf("null"));
    EXPECT_FALSE(textOf("[1]"));
}

TEST(FlagEvaluation, AWrongElementConcernsItselfAlone) {
    const auto values = parseEvaluation(R"({"more": {}, "flags": [
        {"key": "a", "value": 1, "variant": "v", "reason": "SPLIT", "metadata": {"x": 1}},
        {"key": "b", "errorCode": "TYPE_MISMATCH", "errorDetails": "broken"},
        {"key": "c", "value": 1, "errorCode": "GENERAL"},
        {"key": "d", "reason": "DISABLED"},
        {"key": 5, "value": 1}, {"key": "", "value": 1}, {"value": 1}, 7, null, "text", [],
        {"key": "e", "value": true}, {"key": "a", "value": 2}]})");
    ASSERT_TRUE(values);
    EXPECT_EQ(*values, (ConfigValues{{"a", "2"}, {"e", "true"}}));
    EXPECT_EQ(parseEvaluation(R"({"flags":[]})"), ConfigValues());
}

TEST(FlagEvaluation, WhatIsNoAnswerIsRefusedWhole) {
    for (const char* body : {"",
                             "<html>",
                             "{",
                             "[]",
                             "{}",
                             R"({"flags":{}})",
                             R"({"flags":null})",
                             R"({"flags":[{"key":"a","value":1}])",
                             "{\"flags\":[\"\xff\"]}"}) {
        EXPECT_FALSE(parseEvaluation(body)) << body;
    }
}

TEST(RetryAfter, IsSecondsOrADateWithinADay) {
    constexpr qint64 kNow = 784111777'000;  // Sun, 06 Nov 1994 08:49:37 GMT
    EXPECT_EQ(retryMoment("120", kNow), kNow + 120'000);
    EXPECT_EQ(retryMoment(" 0 ", kNow), kNow);
    EXPECT_EQ(retryMoment("99999999999999999999999", kNow), kNow + kLongestHold);
    EXPECT_EQ(retryMoment("Sun, 06 Nov 1994 08:49:47 GMT", kNow), kNow + 10'000);
    EXPECT_EQ(retryMoment("Sun, 06 Nov 1994 08:49:27 GMT", kNow), kNow);
    EXPECT_EQ(retryMoment("Tue, 06 Nov 2035 08:49:37 GMT", kNow), kNow + kLongestHold);
    for (const char* header : {"", "-1", "1.5", "soon", "Sun, 06 Nov 1994"}) {
        EXPECT_FALSE(retryMoment(header, kNow)) << header;
    }
}

}  // namespace
}  // namespace pellumar
