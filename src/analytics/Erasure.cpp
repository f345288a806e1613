#include "analytics/Erasure.h"

#include <fstream>
#include <memory>
#include <system_error>
#include <utility>

#include "analytics/AnalyticsStore.h"

namespace pellumar {
namespace {

std::filesystem::file_type typeOf(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::symlink_status(file, error).type();
}

}  // namespace

Erasure::Erasure(std::filesystem::path folder) : folder_(std::move(folder)) {
    look();
}

void Erasure::look() {
    if (debt_ != Debt::kUnknown) {
        return;
    }
    switch (typeOf(noteIn(folder_))) {
        case std::filesystem::file_type::none:
            break;
        case std::filesystem::file_type::not_found:
            debt_ = Debt::kNone;
            break;
        default:
            debt_ = Debt::kOwed;
    }
}

std::filesystem::path Erasure::noteIn(const std::filesystem::path& folder) {
    return folder / "erasure.owed";
}

void Erasure::perform(bool isWiped, const std::stop_token& ending) {
    const bool isErased = AnalyticsStore::remove(folder_) || isWiped || wipeClosed(ending);
    debt_ = isErased ? Debt::kNone : Debt::kOwed;
    namespace fs = std::filesystem;
    const fs::path note = noteIn(folder_);
    std::error_code ignored;
    if (!isErased) {
        std::ofstream(note, std::ios::app).flush();
        fs::permissions(note, fs::perms::owner_read | fs::perms::owner_write, ignored);
    } else if (typeOf(note) != fs::file_type::not_found) {
        fs::remove(note, ignored);
    }
}

bool Erasure::wipeClosed(const std::stop_token& ending) const {
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(
        folder_, AnalyticsStore::kMostBytes, AnalyticsStore::Reason::kReplaced, ending);
    return store && store->wipe();
}

}  // namespace pellumar
