#include "cli/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/Arguments.h"

namespace pellumar {

std::string inputName(const std::filesystem::path& path) {
    return path == kStandardStream ? "standard input" : path.native();
}

std::optional<std::string> whyNoArchive(const std::filesystem::path& path) {
    struct stat status {};
    const bool isStandard = path == kStandardStream;
    if ((isStandard ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status)) != 0 ||
        S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    if (S_ISDIR(status.st_mode)) {
        return "is a folder, not an archive";
    }
    return isStandard
               ? "is no file; an archive is read from its end, so it has to be one: \"< FILE\""
               : "is no file; an archive is read from its end, so it has to be one";
}

archive::File standardInput() {
    return archive::File(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
}

}  // namespace pellumar
