#include "platform/Originals.h"

namespace pellumar {
namespace {

bool isSame(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

}  // namespace

void Originals::note(const std::filesystem::path& link, const struct stat& status) {
    const std::lock_guard lock(mutex_);
    noted_.insert_or_assign(link.native(), status);
}

bool Originals::isUnchanged(const std::filesystem::path& link) const {
    struct stat before {};
    {
        const std::lock_guard lock(mutex_);
        const auto noted = noted_.find(link.native());
        if (noted == noted_.end()) {
            return true;
        }
        before = noted->second;
    }
    // The time of the last change of the inode cannot be set back, as that of the content can.
    struct stat now {};
    return ::stat(link.c_str(), &now) == 0 && now.st_dev == before.st_dev &&
           now.st_ino == before.st_ino && now.st_size == before.st_size &&
           isSame(now.st_mtim, before.st_mtim) && isSame(now.st_ctim, before.st_ctim);
}

}  // namespace pellumar
