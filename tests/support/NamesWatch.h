#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>

namespace pellumar::test {

// Sees every name that comes up in a folder, however short it stands there (inotify(7)).
class NamesWatch {
  public:
    explicit NamesWatch(const std::filesystem::path& folder)
        : descriptor_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        watching_ = ::inotify_add_watch(descriptor_, folder.c_str(), IN_CREATE | IN_MOVED_TO) >= 0;
    }
    NamesWatch(const NamesWatch&) = delete;
    NamesWatch& operator=(const NamesWatch&) = delete;
    ~NamesWatch() { ::close(descriptor_); }

    [[nodiscard]] bool isWatching() const { return watching_; }

    // Since the last call.
    [[nodiscard]] std::set<std::string> seen() {
        std::set<std::string> names;
        alignas(inotify_event) std::array<char, 4096> buffer{};
        for (ssize_t size = 0; (size = ::read(descriptor_, buffer.data(), buffer.size())) > 0;) {
            for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
                inotify_event event{};
                std::memcpy(&event, buffer.data() + at, sizeof event);
                names.insert(buffer.data() + at + sizeof event);
                at += sizeof event + event.len;
            }
        }
        return names;
    }

  private:
    int descriptor_;
    bool watching_ = false;
};

}  // namespace pellumar::test
