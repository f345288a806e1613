#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace pellumar::test {

// Shows a folder in a second place, from where it is served by a process that can be stopped: who
// then asks for anything there hangs until it goes on, as with a server on a network that does not
// answer.
class StoppableFolder {
  public:
    // Why there can be none here, for GTEST_SKIP; empty if there can.
    [[nodiscard]] static std::string whyNot();

    // `source` and `place` are folders that outlive this; `place` is empty. Fails the test if it
    // cannot be shown.
    StoppableFolder(const std::filesystem::path& source, std::filesystem::path place);
    // Ends the server: who hangs gets an error.
    ~StoppableFolder();
    StoppableFolder(const StoppableFolder&) = delete;
    StoppableFolder& operator=(const StoppableFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return place_; }

    // What is asked for after this hangs.
    void stop() const;
    // Answers what hangs.
    void goOn() const;

  private:
    const std::filesystem::path place_;
    pid_t server_ = -1;
};

}  // namespace pellumar::test
