#pragma once

#include <QString>

#include "engine/JobReport.h"

namespace pellumar {

// Why a job has failed, for the person who asked for it.
struct FailureReason {
    // In plain words: which file, what is wrong with it, what one can do. It begins with the first
    // failure; how many others there were stands in a line of its own. Empty if nothing has failed.
    QString text;
    // For somebody who knows archives: one line a failure, with codes, entries and offsets.
    QString details;
    // Whether what is whole in the archive may be had all the same, by ZipManager::salvage.
    bool canBeSalvaged = false;

    [[nodiscard]] static FailureReason of(const JobReport& report);
};

}  // namespace pellumar
