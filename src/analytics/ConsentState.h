#pragma once

#include <QString>
#include <QtGlobal>
#include <array>
#include <filesystem>
#include <optional>
#include <utility>

namespace pellumar {

enum class ConsentKind { kAdStorage, kAnalyticsStorage, kAdUserData, kAdPersonalization };
inline constexpr std::array kConsentKinds = {ConsentKind::kAdStorage,
                                             ConsentKind::kAnalyticsStorage,
                                             ConsentKind::kAdUserData,
                                             ConsentKind::kAdPersonalization};

// Unset: nobody has been asked.
enum class ConsentStatus { kUnset, kGranted, kDenied };

// "ad_storage", "analytics_storage", "ad_user_data", "ad_personalization".
[[nodiscard]] QString toText(ConsentKind kind);
// "unset", "granted", "denied".
[[nodiscard]] QString toText(ConsentStatus status);

// The four answers.
struct Consent {
    std::array<ConsentStatus, kConsentKinds.size()> statuses{};

    [[nodiscard]] ConsentStatus status(ConsentKind kind) const;
    void set(ConsentKind kind, ConsentStatus status);

    // What is not denied is allowed, so what nobody has been asked about is.
    [[nodiscard]] bool allowsStorage() const;
    // Whether somebody may be put into an audience that advertising is made for.
    [[nodiscard]] bool allowsAdvertisingAudiences() const;
    // Whether what was found out for advertising may leave the machine.
    [[nodiscard]] bool allowsSendingAdvertisingData() const;

    // Two bits for each kind, to be kept in a number.
    [[nodiscard]] qint64 packed() const;
    [[nodiscard]] static Consent unpacked(qint64 bits);

    friend bool operator==(const Consent&, const Consent&) = default;
};

// The consent in force, kept in a file of its own with the time of each answer: it has to outlive
// the store, which is removed when storage is denied and rebuilt when it is damaged.
//
// Somebody has answered where there is a file, perhaps with no. One whose content makes no sense
// therefore denies what it does not say. While it cannot be read at all, for want of descriptors,
// rights or a healthy disk, the answers are not known, which denies too but is a reason to look
// again and none to erase anything. One thread at a time.
class ConsentState {
  public:
    // Reads what is kept. `folder` need not exist.
    explicit ConsentState(const std::filesystem::path& folder);

    // What is not known is denied.
    [[nodiscard]] Consent current() const;
    [[nodiscard]] bool isKnown(ConsentKind kind) const;
    // Milliseconds since 1970 in UTC; nothing if it is unset.
    [[nodiscard]] std::optional<qint64> timeOf(ConsentKind kind) const;

    // In force at once. If it cannot be written it stays so in this process, and every save() tries
    // again. The same answer as in the file changes nothing there, not even its time.
    void set(ConsentKind kind, ConsentStatus status, qint64 time);

    // Takes over what another process has written; against an answer of this one that could not be
    // written yet, only a no counts. True if the consent is another one now, or known and was not,
    // or no longer known.
    bool refresh();
    // Writes what could not be written before, and nothing but that: the other answers are those of
    // the file as it is now, which it takes over as refresh() does and with the same result.
    bool save();
    [[nodiscard]] bool isUnsaved() const;

  private:
    // What tells one file of this name from the next.
    using Version = std::pair<quint64, qint64>;

    struct Answers {
        Consent consent;
        std::array<std::optional<qint64>, kConsentKinds.size()> times;
    };

    // Nothing if it cannot be seen whether there is a file.
    [[nodiscard]] std::optional<Version> versionOnDisk() const;
    // Nothing if they cannot be read.
    [[nodiscard]] std::optional<Answers> read(const Version& version) const;
    // Reads and merges. False if that cannot be.
    bool takeOver();
    [[nodiscard]] bool write() const;
    void merge(const Answers& disk);

    const std::filesystem::path folder_;
    const QString path_;
    // Of what was read or written last; nothing if it could not be.
    std::optional<Version> version_;
    Answers current_;
    // As they were when this process last read or wrote them.
    Answers kept_;
    // Answers that have been given to this process and are not in the file.
    std::array<bool, kConsentKinds.size()> unsaved_{};
};

}  // namespace pellumar
