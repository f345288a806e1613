#pragma once

#include <array>
#include <ctime>
#include <string>

namespace pellumar {

// The local times of many moments: what the system says of a day serves all moments of that day, as
// to ask it takes longer than all the rest of an entry's line. Belongs to one thread.
class LocalDays {
  public:
    // Appends "2024-03-01 12:34"; a year before 0 is 0.
    void append(std::string& text, std::time_t moment);
    // The same for a single moment.
    static void appendOne(std::string& text, std::time_t moment);

  private:
    struct Day {
        // From its midnight on it has all its hours, each once. Else nothing is known of it.
        bool isEven = false;
        std::time_t midnight = 0;
        std::string date;
    };

    static Day dayOf(std::time_t moment, const std::tm& local);

    // By days from 1970 on: those of one year do not displace each other.
    std::array<Day, 512> days_;
    std::time_t eastOfGreenwich_ = 0;  // in seconds, at the last moment that was looked up
};

}  // namespace pellumar
