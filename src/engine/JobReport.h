#pragma once

#include <QList>
#include <QUrl>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/Password.h"
#include "archive/base/Salvaging.h"
#include "archive/base/Warning.h"
#include "engine/OperationType.h"

namespace pellumar {

// What a job's completion does not tell by its value: why it has failed, what was odd, what is not
// in the list. A plain value; the job fills it on one thread after the other.
//
// FailureReason and Remarks tell it to people.
class JobReport {
  public:
    // The failures beyond these are counted only.
    static constexpr std::size_t kMostKept = 100;

    // `archive` is the one that is made or extracted.
    JobReport(OperationType operation, QUrl archive)
        : operation_(operation), archive_(std::move(archive)) {}

    // A step has failed. There may be several in one job, and a job may succeed in spite of it.
    void addFailure(archive::Error error) {
        ++failureCount_;
        if (failures_.size() < kMostKept) {
            failures_.push_back(std::move(error));
        }
    }
    void addWarnings(const archive::Warnings& warnings) { warnings_.add(warnings); }
    void setHiddenItems(QList<QUrl> items) { hiddenItems_ = std::move(items); }

    void setSalvage(archive::SalvageReport salvage) { salvage_ = std::move(salvage); }

    void setPassword(std::shared_ptr<const archive::Password> password) {
        password_ = std::move(password);
    }

    [[nodiscard]] OperationType operation() const { return operation_; }
    [[nodiscard]] const QUrl& archive() const { return archive_; }
    // In the order in which they came up.
    [[nodiscard]] const std::vector<archive::Error>& failures() const { return failures_; }
    [[nodiscard]] std::uint64_t failureCount() const { return failureCount_; }
    // What was odd about an archive that was taken, or made, all the same.
    [[nodiscard]] const archive::Warnings& warnings() const { return warnings_; }
    // What stands at the top of an extraction and is not in its list, because its names begin with
    // a dot.
    [[nodiscard]] const QList<QUrl>& hiddenItems() const { return hiddenItems_; }

    // What the archive was opened with; null if nobody was asked, or nothing fitted.
    [[nodiscard]] const std::shared_ptr<const archive::Password>& password() const {
        return password_;
    }
    // What could be had of a damaged archive, and what not; nothing where all of one was taken.
    [[nodiscard]] const std::optional<archive::SalvageReport>& salvage() const { return salvage_; }

  private:
    OperationType operation_;
    QUrl archive_;
    std::vector<archive::Error> failures_;
    std::uint64_t failureCount_ = 0;
    archive::Warnings warnings_;
    QList<QUrl> hiddenItems_;
    std::shared_ptr<const archive::Password> password_;
    std::optional<archive::SalvageReport> salvage_;
};

}  // namespace pellumar
