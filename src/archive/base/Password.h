#pragma once

#include <string>

namespace pellumar::archive {

// A password, which is wiped from memory when it is not needed any more. Its bytes are taken as
// they are; other programs use UTF-8. Nothing that stands in it changes after it was made.
class Password {
  public:
    // What was given is wiped as well, but not what it was copied from.
    explicit Password(std::string text) : text_(text) { wipe(text); }
    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;
    ~Password() { wipe(text_); }

    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    static void wipe(std::string& text) {
        volatile char* byte = text.data();
        for (std::size_t i = 0; i < text.size(); ++i) {
            byte[i] = 0;
        }
    }

    std::string text_;
};

}  // namespace pellumar::archive
