#include "analytics/Event.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace pellumar {
namespace {

TEST(Event, NamesAreShortWordsOfAscii) {
    for (const QString& name : {QString("a"), QString("Tapped_zip2"), QString(40, 'a')}) {
        EXPECT_TRUE(Event::check(name, {}).value) << name.toStdString();
    }
    for (const QString& name : {QString(41, 'a'),
                                QString(),
                                QString("1st"),
                                QString("_tapped"),
                                QString("tapped zip"),
                                QString("größe"),
                                QString::fromUtf16(u"a\0b", 3),
                                QString("pz_tapped")}) {
        const Checked<Event> checked = Event::check(name, {});
        EXPECT_TRUE(!checked.value && !checked.isWhole) << name.toStdString();
    }
    EXPECT_TRUE(UserProperty::check(QString(24, 'a'), QString(36, 'b')).isWhole);
    EXPECT_FALSE(UserProperty::check(QString(25, 'a'), "b").value);
    EXPECT_FALSE(UserProperty::check("pz_in_x", "1").value);
    const Checked<UserProperty> cut = UserProperty::check("tests", QString(37, 'b'));
    EXPECT_FALSE(cut.isWhole);
    EXPECT_EQ(cut.value->value, QString(36, 'b'));
}

TEST(Event, WrongParametersAreLeftOut) {
    struct Case {
        QString name;
        QVariant value;
        std::optional<ParameterValue> kept;
        bool isWhole = false;
    };
    const std::vector<Case> cases{
        {"int", 3, qint64{3}, true},
        {"unsigned", quint64{7}, qint64{7}, true},
        {"huge", std::numeric_limits<quint64>::max(), {}},
        {"infinite", std::numeric_limits<double>::infinity(), {}},
        {"list", QVariantList{1}, {}},
        // A cut does not halve a character.
        {"long", QString(99, 'a') + QStringLiteral("😀"), QString(99, 'a')},
        {"a b", 1, {}},
        {"pz_own", 1, {}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name.toStdString());
        const Checked<Event> checked = Event::check("e", {{each.name, each.value}});
        Event::Parameters expected;
        if (each.kept) {
            expected.emplace_back(each.name, *each.kept);
        }
        EXPECT_EQ(checked.value->parameters, expected);
        EXPECT_EQ(checked.isWhole, each.isWhole);
    }
    QVariantMap many;
    for (int i = 0; i < 30; ++i) {
        many.insert(QStringLiteral("p%1").arg(i, 2, 10, QLatin1Char('0')), i);
    }
    const Checked<Event> cut = Event::check("e", many);
    EXPECT_FALSE(cut.isWhole);
    EXPECT_EQ(cut.value->parameters.size(), 25U);
    EXPECT_EQ(cut.value->parameters.back().first, "p24");
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
    EXPECT_EQ(event.value->parameters, (Event::Parameters{{before, before}}));
    EXPECT_EQ(property.value->name + property.value->value, before + before);
}

}  // namespace
}  // namespace pellumar
