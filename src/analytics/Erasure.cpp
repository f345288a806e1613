#include "analytics/Erasure.h"

#include <fstream>
#include <memory>
#include <system_error>
#include <utility>

#include "analytics/AnalyticsStore.h"

namespace pellumar {
namespace {

bool isThere(const std::filesystem::path& file) {
    std::error_code error;
    // What cannot be looked at is not known to be gone.
    return std::filesystem::symlink_status(file, error).type() !=
           std::filesystem::file_type::not_found;
}

}  // namespace

Erasure::Erasure(std::filesystem::path folder)
    : folder_(std::move(folder)), isOwed_(isThere(noteIn(folder_))) {}

std::filesystem::path Erasure::noteIn(const std::filesystem::path& folder) {
    return folder / "erasure.owed";
}

void Erasure::perform(bool isWiped, const std::stop_token& ending) {
    isOwed_ = !AnalyticsStore::remove(folder_) && !isWiped && !wipeClosed(ending);
    namespace fs = std::filesystem;
    const fs::path note = noteIn(folder_);
    std::error_code ignored;
    if (isOwed_) {
        std::ofstream(note, std::ios::app).flush();
        fs::permissions(note, fs::perms::owner_read | fs::perms::owner_write, ignored);
    } else if (isThere(note)) {
        fs::remove(note, ignored);
    }
}

bool Erasure::wipeClosed(const std::stop_token& ending) const {
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(
        folder_, AnalyticsStore::kMostBytes, AnalyticsStore::Reason::kReplaced, ending);
    return store && store->wipe();
}

}  // namespace pellumar
