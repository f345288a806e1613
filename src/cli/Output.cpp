#include "cli/Output.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "cli/PrintableText.h"

namespace pellumar {
namespace {

// Large enough that its writes cost nothing beside what fills it.
constexpr std::size_t kOutputBuffer = 64UL * 1024;

}  // namespace

Output::Output() : isTerminal_(::isatty(STDOUT_FILENO) != 0) {
    buffer_.reserve(kOutputBuffer);
}

void Output::append(std::string_view text) {
    if (buffer_.size() + text.size() > kOutputBuffer) {
        flush();
    }
    if (text.size() > kOutputBuffer) {
        writeOut(text);
    } else {
        buffer_ += text;
    }
}

void Output::appendPath(std::string_view path, bool endWithNul) {
    if (isTerminal_) {
        append(printable(path));
    } else {
        append(path);
    }
    append(endWithNul ? std::string_view("\0", 1) : "\n");
}

archive::Result<> Output::write(archive::ByteView bytes) {
    append({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (error_ == 0) {
        return {};
    }
    errno = error_;
    return archive::systemFailure(archive::ErrorCode::kWriteFailed);
}

std::string Output::finish() {
    flush();
    return error_ == 0 ? std::string()
                       : "standard output: " + std::generic_category().message(error_);
}

void Output::flush() {
    writeOut(buffer_);
    buffer_.clear();
}

void Output::writeOut(std::string_view bytes) {
    while (error_ == 0 && !bytes.empty()) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            error_ = errno;
        }
    }
}

}  // namespace pellumar
