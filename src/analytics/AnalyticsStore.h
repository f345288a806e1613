#pragma once

#include <QtGlobal>
#include <filesystem>
#include <memory>

#include "analytics/CountTable.h"
#include "analytics/Database.h"
#include "analytics/EventTable.h"
#include "analytics/InstallationIdentifier.h"
#include "analytics/LossTable.h"
#include "analytics/MembershipTable.h"
#include "analytics/SessionTable.h"
#include "analytics/StateTable.h"
#include "analytics/UserPropertyTable.h"

namespace pellumar {

// The file of all that has been measured: "events.db" in a folder, a SQLite database with a log
// beside it, so that what is committed outlives a process that is killed at any moment. One thread
// at a time; several processes may have the same file open.
class AnalyticsStore {
  public:
    static constexpr qint64 kMostBytes = 8LL << 20;

    // What a new store follows.
    enum class Reason {
        // Nothing; or whatever stands there is opened.
        kOpened,
        // What stood there was damaged, or removed at the user's wish. It is not the first one.
        kReplaced,
    };

    // Opens the store of a folder, or makes it. One that is damaged, or of a version that this
    // program does not know, is removed and made anew. Nothing if it can be neither opened nor
    // made. The file never grows beyond `mostBytes`, nor the log beside it much beyond half a MiB.
    // `ending` is the database's.
    [[nodiscard]] static std::unique_ptr<AnalyticsStore> open(const std::filesystem::path& folder,
                                                              qint64 mostBytes = kMostBytes,
                                                              Reason reason = Reason::kOpened,
                                                              const std::stop_token& ending = {});

    // Removes the store of a folder with all that belongs to it. False if something is left.
    static bool remove(const std::filesystem::path& folder);
    [[nodiscard]] static std::filesystem::path fileIn(const std::filesystem::path& folder);

    AnalyticsStore(const AnalyticsStore&) = delete;
    AnalyticsStore& operator=(const AnalyticsStore&) = delete;
    ~AnalyticsStore() = default;

    // Another process has removed the file: what is written now goes nowhere.
    [[nodiscard]] bool isMoved() { return database_.isMoved(); }

    [[nodiscard]] Database& database() { return database_; }
    [[nodiscard]] EventTable& events() { return events_; }
    [[nodiscard]] CountTable& counts() { return counts_; }
    [[nodiscard]] UserPropertyTable& userProperties() { return userProperties_; }
    [[nodiscard]] SessionTable& sessions() { return sessions_; }
    [[nodiscard]] MembershipTable& memberships() { return memberships_; }
    [[nodiscard]] LossTable& losses() { return losses_; }
    [[nodiscard]] StateTable& state() { return state_; }
    [[nodiscard]] InstallationIdentifier& installation() { return installation_; }

    // Within a transaction: removes the oldest events while little room is left, and counts them.
    void keepBound();
    // Without one: removes the oldest events, for a commit that found no room.
    void makeRoom();

    // Without a transaction: forgets everything, the installation's identifier first of all. The
    // store is not to be used any more. False if that could not be written, or if the file or its
    // log may still hold some of it.
    [[nodiscard]] bool wipe();

    // Within a transaction: forgets events that were recorded before `eventsBefore`, and the days
    // and sessions that nothing asks for any more. Moments of a clock that had not been set yet, in
    // the first years after 1970, are not old but unknown: such events stay.
    void forget(qint64 eventsBefore, qint64 today);

  private:
    AnalyticsStore(const std::filesystem::path& file,
                   qint64 mostBytes,
                   const std::stop_token& ending);

    [[nodiscard]] DatabaseOutcome prepare(Reason reason);
    [[nodiscard]] bool isSound();
    void setUp();
    [[nodiscard]] qint64 bytesInUse();

    Database database_;
    const qint64 mostBytes_;
    EventTable events_;
    CountTable counts_;
    UserPropertyTable userProperties_;
    SessionTable sessions_;
    MembershipTable memberships_;
    LossTable losses_;
    StateTable state_;
    InstallationIdentifier installation_;
};

}  // namespace pellumar
