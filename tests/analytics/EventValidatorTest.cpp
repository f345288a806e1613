#include "analytics/EventValidator.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <map>

namespace pellumar {
namespace {

using Error = MeasurementError;
using validation::checkEvent;
using validation::checkUserProperty;

TEST(EventValidator, NamesAreShortWordsOfAscii) {
    const std::map<QString, Error> names{
        {"a", Error::kNone},
        {"Tapped_zip2", Error::kNone},
        {QString(40, 'a'), Error::kNone},
        {QString(41, 'a'), Error::kEventName},
        {"", Error::kEventName},
        {"1st", Error::kEventName},
        {"_tapped", Error::kEventName},
        {"tapped zip", Error::kEventName},
        {"größe", Error::kEventName},
        {QString::fromUtf16(u"a\0b", 3), Error::kEventName},
        {"pz_tapped", Error::kReservedEventName},
    };
    for (const auto& [name, error] : names) {
        const validation::CheckedEvent checked = checkEvent(name, {});
        EXPECT_EQ(checked.error, error) << name.toStdString();
        EXPECT_EQ(checked.event.has_value(), error == Error::kNone) << name.toStdString();
    }
}

TEST(EventValidator, WrongParametersAreLeftOutAndTold) {
    const QString longText = QString(99, 'a') + QStringLiteral("😀");
    struct Case {
        QString name;
        QVariant value;
        // One, or none.
        std::vector<ParameterValue> kept;
        Error error = Error::kNone;
    };
    const std::vector<Case> cases{
        {"int", 3, {qint64{3}}},
        {"least", std::numeric_limits<qint64>::min(), {std::numeric_limits<qint64>::min()}},
        {"unsigned", quint64{7}, {qint64{7}}},
        {"huge", std::numeric_limits<quint64>::max(), {}, Error::kParameterType},
        {"infinite", std::numeric_limits<double>::infinity(), {}, Error::kParameterType},
        {"list", QVariantList{1}, {}, Error::kParameterType},
        {"nothing", QVariant(), {}, Error::kParameterType},
        {"text", QString(100, 'a'), {QString(100, 'a')}},
        // A cut does not halve a character.
        {"long", longText, {QString(99, 'a')}, Error::kParameterTextCut},
        {"a b", 1, {}, Error::kParameterName},
        {QString(41, 'a'), 1, {}, Error::kParameterName},
        {"pz_own", 1, {}, Error::kReservedParameterName},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name.toStdString());
        const validation::CheckedEvent checked = checkEvent("e", {{each.name, each.value}});
        ASSERT_TRUE(checked.event);
        std::vector<EventParameter> expected;
        for (const ParameterValue& value : each.kept) {
            expected.push_back({each.name, value});
        }
        if (each.error != Error::kNone) {
            expected.push_back({"pz_error", static_cast<qint64>(each.error)});
            expected.push_back({"pz_error_name", each.name.left(40)});
        }
        EXPECT_EQ(checked.event->parameters, expected);
        EXPECT_EQ(checked.error, each.error);
        EXPECT_EQ(checked.event->droppedParameters, each.kept.empty() ? 1 : 0);
    }
}

TEST(EventValidator, NoMoreThan25Parameters) {
    QVariantMap parameters;
    for (int i = 0; i < 30; ++i) {
        parameters.insert(QStringLiteral("p%1").arg(i, 2, 10, QLatin1Char('0')), i);
    }
    const validation::CheckedEvent checked = checkEvent("e", parameters);
    EXPECT_EQ(checked.error, Error::kTooManyParameters);
    ASSERT_EQ(checked.event->parameters.size(), 27U);
    EXPECT_EQ(checked.event->parameters[24].name, "p24");
    EXPECT_EQ(checked.event->parameters[26], (EventParameter{"pz_error_name", QString("p25")}));
    EXPECT_EQ(checked.event->droppedParameters, 5);
}

// What is kept in memory is nobody else's, who may write over it.
TEST(EventValidator, TextsAreCopied) {
    std::array<QChar, 10> lent;
    lent.fill('l');
    const QString raw = QString::fromRawData(lent.data(), lent.size());
    const validation::CheckedEvent checked = checkEvent(raw, {{raw, raw}});
    const validation::CheckedProperty property = checkUserProperty(raw, raw);
    lent.fill('x');
    const QString before(10, 'l');
    EXPECT_EQ(checked.event->name, before);
    EXPECT_EQ(checked.event->parameters, (std::vector{EventParameter{before, before}}));
    EXPECT_EQ(property.property->name, before);
    EXPECT_EQ(property.property->value, before);
}

TEST(EventValidator, UserProperties) {
    const auto kept = [](const QString& name, const QString& value) {
        return checkUserProperty(name, value).property->value;
    };
    EXPECT_EQ(kept(QString(24, 'a'), QString(36, 'b')), QString(36, 'b'));
    EXPECT_EQ(kept("tests", QString(37, 'b')), QString(36, 'b'));
    EXPECT_EQ(checkUserProperty("tests", QString(37, 'b')).error, Error::kPropertyValueCut);
    EXPECT_EQ(checkUserProperty(QString(25, 'a'), "b").error, Error::kPropertyName);
    EXPECT_EQ(checkUserProperty("pz_in_x", "1").error, Error::kReservedPropertyName);
    EXPECT_FALSE(checkUserProperty("pz_in_x", "1").property);
}

}  // namespace
}  // namespace pellumar
