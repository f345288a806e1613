#pragma once

#include <string>
#include <utility>

namespace pellumar::archive {

// A password, which is wiped from memory when it is not needed any more. Its bytes are taken as
// they are; other programs use UTF-8. Nothing that stands in it changes after it was made.
class Password {
  public:
    explicit Password(std::string text) : text_(std::move(text)) {}
    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;
    ~Password() {
        volatile char* byte = text_.data();
        for (std::size_t i = 0; i < text_.size(); ++i) {
            byte[i] = 0;
        }
    }

    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    std::string text_;
};

}  // namespace pellumar::archive
