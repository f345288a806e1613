#pragma once

#include <mutex>
#include <string>
#include <string_view>

#include "archive/base/Warning.h"

namespace pellumar {

// What a command says beside its result, on standard error: lines, and on a terminal below them a
// status that rewrites itself. What is said is made printable here. Any thread may speak.
class Messages {
  public:
    // `quiet`: errors and nothing else.
    explicit Messages(bool quiet);
    // Takes the status away.
    ~Messages();
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    // Says why the command fails, and returns what the program returns for it.
    int fail(std::string_view reason);
    void warn(std::string_view text);
    // What was odd about an archive, a line each.
    void warn(std::string_view archive, const archive::Warnings& warnings);
    // For a person at a terminal only.
    void remark(std::string_view text);

    // Whether somebody would see a status.
    [[nodiscard]] bool hasStatus() const { return hasStatus_; }
    // In columns of the terminal.
    [[nodiscard]] static std::size_t width();
    // What does not fit into a line is cut off by the terminal.
    void showStatus(std::string_view text);
    void clearStatus();

  private:
    void say(std::string_view start, std::string_view text);
    void write(const std::string& bytes);

    const bool quiet_;
    const bool hasStatus_;
    std::mutex mutex_;  // guards what follows, and the stream
    bool isStatusShown_ = false;
};

}  // namespace pellumar
