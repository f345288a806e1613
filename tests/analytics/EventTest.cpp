#include "analytics/Event.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace pellumar {
namespace {

using Error = MeasurementError;

TEST(Event, NamesAreShortWordsOfAscii) {
    const std::map<QString, Error> names{
        {"a", Error::kNone},
        {"Tapped_zip2", Error::kNone},
        {QString(40, 'a'), Error::kNone},
        {QString(41, 'a'), Error::kName},
        {"", Error::kName},
        {"1st", Error::kName},
        {"_tapped", Error::kName},
        {"tapped zip", Error::kName},
        {"größe", Error::kName},
        {QString::fromUtf16(u"a\0b", 3), Error::kName},
        {"pz_tapped", Error::kReservedName},
    };
    for (const auto& [name, error] : names) {
        const Checked<Event> checked = Event::check(name, {});
        EXPECT_EQ(checked.error, error) << name.toStdString();
        EXPECT_EQ(checked.value.has_value(), error == Error::kNone) << name.toStdString();
    }
    EXPECT_EQ(UserProperty::check(QString(24, 'a'), QString(36, 'b')).error, Error::kNone);
    EXPECT_EQ(UserProperty::check(QString(25, 'a'), "b").error, Error::kName);
    EXPECT_EQ(UserProperty::check("pz_in_x", "1").error, Error::kReservedName);
    const Checked<UserProperty> cut = UserProperty::check("tests", QString(37, 'b'));
    EXPECT_EQ(cut.error, Error::kTextCut);
    EXPECT_EQ(cut.value->value, QString(36, 'b'));
}

TEST(Event, WrongParametersAreLeftOutAndTold) {
    struct Case {
        QString name;
        QVariant value;
        // Invalid: nothing.
        QVariant kept;
        Error error = Error::kNone;
    };
    const std::vector<Case> cases{
        {"int", 3, qint64{3}},
        {"least", std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::min()},
        {"unsigned", quint64{7}, qint64{7}},
        {"huge", std::numeric_limits<quint64>::max(), {}, Error::kParameterType},
        {"infinite", std::numeric_limits<double>::infinity(), {}, Error::kParameterType},
        {"list", QVariantList{1}, {}, Error::kParameterType},
        {"nothing", QVariant(), {}, Error::kParameterType},
        // A cut does not halve a character.
        {"long", QString(99, 'a') + QStringLiteral("😀"), QString(99, 'a'), Error::kTextCut},
        {"a b", 1, {}, Error::kName},
        {"pz_own", 1, {}, Error::kReservedName},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name.toStdString());
        const Checked<Event> checked = Event::check("e", {{each.name, each.value}});
        QVariantMap expected;
        if (each.kept.isValid()) {
            expected.insert(each.name, each.kept);
        }
        if (each.error != Error::kNone) {
            expected.insert(
                {{"pz_error", static_cast<qint64>(each.error)}, {"pz_error_name", each.name}});
        }
        EXPECT_EQ(checked.value->parameters, expected);
        EXPECT_EQ(checked.error, each.error);
    }
    QVariantMap many;
    for (int i = 0; i < 30; ++i) {
        many.insert(QStringLiteral("p%1").arg(i, 2, 10, QLatin1Char('0')), i);
    }
    const QVariantMap kept = Event::check("e", many).value->parameters;
    EXPECT_EQ(kept.size(), 27);
    EXPECT_TRUE(kept.contains("p24"));
    EXPECT_EQ(kept["pz_error_name"], "p25");
}

// What is kept in memory is nobody else's, who may write over it.
TEST(Event, TextsAreCopied) {
    std::array<QChar, 10> lent;
    lent.fill('l');
    const QString raw = QString::fromRawData(lent.data(), lent.size());
    const Checked<Event> event = Event::check(raw, {{raw, raw}});
    const Checked<UserProperty> property = UserProperty::check(raw, raw);
    lent.fill('x');
    const QString before(10, 'l');
    EXPECT_EQ(event.value->name, before);
    EXPECT_EQ(event.value->parameters, (QVariantMap{{before, before}}));
    EXPECT_EQ(property.value->name + property.value->value, before + before);
}

}  // namespace
}  // namespace pellumar
