#include "support/TemporaryFolder.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

namespace pellumar::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    std::string pattern = fs::temp_directory_path() / "pellumar-test-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) {
        std::perror(pattern.c_str());
        std::abort();
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    // A test may have taken permissions away; a folder must be writable to be emptied.
    for (fs::recursive_directory_iterator it(path_, error), end; !error && it != end;
         it.increment(error)) {
        if (it->is_directory(error) && !it->is_symlink(error)) {
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, error);
        }
    }
    fs::remove_all(path_, error);
}

}  // namespace pellumar::test
