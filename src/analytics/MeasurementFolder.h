#pragma once

#include <QByteArray>
#include <filesystem>
#include <optional>
#include <utility>

namespace pellumar {

// The folder of all that is measured, which one process at a time holds and only the user may
// enter. One thread at a time.
class MeasurementFolder {
  public:
    explicit MeasurementFolder(std::filesystem::path path) : path_(std::move(path)) {}
    // Lets go of it, as the kernel does however the process ends.
    ~MeasurementFolder();
    MeasurementFolder(const MeasurementFolder&) = delete;
    MeasurementFolder& operator=(const MeasurementFolder&) = delete;

    // Makes the folder if need be, keeps others out of it, and takes its lock. False if another
    // process holds it, or it cannot be made or written.
    [[nodiscard]] bool hold();

    // What "consent.json" says; empty if there is none. Nothing if it cannot be read or seen to be
    // missing: then the answers are not known.
    [[nodiscard]] std::optional<QByteArray> readConsent() const;
    // False if the old one still stands.
    [[nodiscard]] bool writeConsent(const QByteArray& json) const;

    // Removes all but the answers and the lock. False if something is left.
    [[nodiscard]] static bool clear(const std::filesystem::path& folder);

    [[nodiscard]] static std::filesystem::path storeIn(const std::filesystem::path& folder) {
        return folder / "usage.db";
    }
    [[nodiscard]] static std::filesystem::path consentIn(const std::filesystem::path& folder) {
        return folder / "consent.json";
    }
    [[nodiscard]] static std::filesystem::path crashIn(const std::filesystem::path& folder) {
        return folder / "crash";
    }

  private:
    const std::filesystem::path path_;
    int lock_ = -1;
};

}  // namespace pellumar
