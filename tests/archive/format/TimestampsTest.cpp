#include "archive/format/Timestamps.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "archive/format/Append.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {
namespace {

constexpr std::int64_t kNewYear1980 = 315'532'800;
constexpr std::int64_t kNewYear2108 = 4'354'819'200;

class Timestamps : public testing::Test {
  protected:
    void SetUp() override {
        setenv("TZ", "UTC", 1);
        tzset();
    }
};

std::timespec at(std::int64_t seconds) {
    return {.tv_sec = seconds, .tv_nsec = 0};
}

TEST_F(Timestamps, ExtraFieldHoldsEveryWholeSecond) {
    for (const std::int64_t seconds : {-11'644'473'599LL,  // 1601, where NTFS begins
                                       -2'147'483'649LL,
                                       -2'147'483'648LL,
                                       -1LL,
                                       0LL,
                                       1'700'000'001LL,
                                       2'147'483'647LL,
                                       2'147'483'648LL,
                                       95'617'584'000LL}) {  // 5000
        std::vector<std::uint8_t> extra;
        appendModificationTime(extra, at(seconds));
        const auto read = modificationTimeIn(extra);
        ASSERT_TRUE(read) << seconds;
        EXPECT_EQ(read->tv_sec, seconds);
        EXPECT_EQ(read->tv_nsec, 0);
    }
}

TEST_F(Timestamps, MostExactFieldWins) {
    std::vector<std::uint8_t> extra;
    appendModificationTime(extra, at(1'000'000'000));
    append(extra, kExtraNtfs);
    append(extra, std::uint16_t{32});
    append(extra, std::uint32_t{0});
    append(extra, std::uint16_t{1});
    append(extra, std::uint16_t{24});
    append(extra, std::uint64_t{(11'644'473'600ULL + 1'000'000'000ULL) * 10'000'000ULL + 25});
    append(extra, std::uint64_t{0});
    append(extra, std::uint64_t{0});

    EXPECT_EQ(modificationTimeIn(extra)->tv_nsec, 2500);
}

TEST_F(Timestamps, CutOffFieldsAreAsIfAbsent) {
    std::vector<std::uint8_t> extra;
    appendModificationTime(extra, at(5'000'000'000));
    for (std::size_t size = 0; size < extra.size(); ++size) {
        EXPECT_FALSE(modificationTimeIn(ByteView(extra).first(size))) << size;
    }
}

TEST_F(Timestamps, DosTimeIsClampedToItsYears) {
    EXPECT_EQ(toDosDateTime(at(0)), toDosDateTime(at(kNewYear1980)));
    EXPECT_EQ(toDosDateTime(at(1LL << 40U)), toDosDateTime(at(kNewYear2108 - 1)));
    EXPECT_EQ(fromDosDateTime(toDosDateTime(at(kNewYear2108))).tv_sec, kNewYear2108 - 2);
    for (const std::int64_t seconds : {kNewYear1980, 1'700'000'002L, kNewYear2108 - 2}) {
        EXPECT_EQ(fromDosDateTime(toDosDateTime(at(seconds))).tv_sec, seconds);
    }
}

// In zones whose clocks skip an hour at midnight, half an hour, a whole day, or nothing.
TEST_F(Timestamps, DaysAreRememberedAsTheyAre) {
    constexpr std::array<std::uint16_t, 6> kTimes = {0,
                                                     1U << 5U,
                                                     (1U << 11U) | (30U << 5U),
                                                     12U << 11U,
                                                     (23U << 11U) | (59U << 5U) | 29U,
                                                     0xFFFF};
    for (const char* zone : {"UTC",
                             "Europe/Berlin",
                             "America/Sao_Paulo",
                             "Australia/Lord_Howe",
                             "Pacific/Apia",
                             "Atlantic/Azores"}) {
        setenv("TZ", zone, 1);
        tzset();
        DosDays days;
        for (unsigned date = 0; date < 60U << 9U; ++date) {
            for (const std::uint16_t time : kTimes) {
                const DosDateTime dos{.time = time, .date = static_cast<std::uint16_t>(date)};
                const std::timespec plain = fromDosDateTime(dos);
                const std::timespec remembered = days.moment(dos);
                // A time that comes twice may mean either; one that never comes may mean anything.
                const bool comes = toDosDateTime(plain) == dos;
                ASSERT_TRUE(plain.tv_sec == remembered.tv_sec ||
                            (std::string_view(zone) != "UTC" &&
                             (!comes || toDosDateTime(remembered) == dos)))
                    << zone << ' ' << date << ' ' << time;
            }
        }
    }
}

}  // namespace
}  // namespace pellumar::archive::format
