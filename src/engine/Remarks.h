#pragma once

#include <QString>
#include <QStringList>

#include "engine/JobReport.h"

namespace pellumar {

// What was odd about an archive that was taken all the same, for the person who opened it.
struct Remarks {
    // One sentence or two for each, in plain words; the last one may say how many more there are.
    QStringList lines;
    // How many there are, which may be more than there are lines. Each thing that is lost of a
    // damaged archive is one.
    qsizetype count = 0;
    // They tell what is lost of a damaged archive.
    bool areLosses = false;
    // For somebody who knows archives: one line for each, with entries and offsets.
    QString details;

    [[nodiscard]] static Remarks of(const JobReport& report);
};

}  // namespace pellumar
