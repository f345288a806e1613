#include "engine/TreeRemoval.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "archive/base/File.h"

namespace pellumar {
namespace {

using archive::File;

File openFolder(int parent, const char* name) {
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    int descriptor = ::openat(parent, name, kFlags);
    if (descriptor < 0 && errno == EACCES &&
        ::fchmodat(parent, name, S_IRWXU, AT_SYMLINK_NOFOLLOW) == 0) {
        descriptor = ::openat(parent, name, kFlags);
    }
    return File(descriptor);
}

// Empties one folder after the other. The way from the top to the open folder is kept as a list of
// what is left to do in each, so depth costs neither stack nor descriptors.
class Remover {
  public:
    // `top` is inside the open folder `parent`.
    bool remove(int parent, const std::string& top) {
        if (!enter(parent, top)) {
            return false;
        }
        while (!way_.empty()) {
            Step& step = way_.back();
            if (!step.folders.empty()) {
                const std::string next = std::move(step.folders.back());
                step.folders.pop_back();
                enter(open_.descriptor(), next);
            } else if (way_.size() == 1) {
                break;
            } else if (!leave()) {
                return false;
            }
        }
        return ::unlinkat(parent, top.c_str(), AT_REMOVEDIR) == 0;
    }

  private:
    struct Step {
        std::string name;
        dev_t device;
        ino_t inode;
        // Names of the folders inside that have not been entered yet.
        std::vector<std::string> folders;
    };

    // Opens a folder, deletes everything in it that is no folder, and makes it the open one.
    bool enter(int parent, const std::string& name) {
        File folder = openFolder(parent, name.c_str());
        struct stat status {};
        if (!folder.isOpen() || ::fstat(folder.descriptor(), &status) != 0) {
            return false;
        }
        if ((status.st_mode & S_IRWXU) != S_IRWXU) {
            static_cast<void>(::fchmod(folder.descriptor(), status.st_mode | S_IRWXU));
        }
        way_.push_back({.name = name,
                        .device = status.st_dev,
                        .inode = status.st_ino,
                        .folders = deleteFiles(folder)});
        open_ = std::move(folder);
        return true;
    }

    static std::vector<std::string> deleteFiles(const File& folder) {
        std::vector<std::string> folders;
        // A descriptor of its own, because closedir closes it.
        const int copy = ::fcntl(folder.descriptor(), F_DUPFD_CLOEXEC, 0);
        const std::unique_ptr<DIR, int (*)(DIR*)> stream(copy < 0 ? nullptr : ::fdopendir(copy),
                                                         &::closedir);
        while (const dirent* entry = stream ? ::readdir(stream.get()) : nullptr) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != ".." &&
                ::unlinkat(folder.descriptor(), entry->d_name, 0) != 0 && errno == EISDIR) {
                folders.emplace_back(name);
            }
        }
        return folders;
    }

    // Goes back up, and deletes the folder that was left. False if the way back is not the way
    // down, because somebody has moved a folder: then nothing more may be touched.
    bool leave() {
        const std::string name = std::move(way_.back().name);
        way_.pop_back();
        File parent = openFolder(open_.descriptor(), "..");
        struct stat status {};
        if (!parent.isOpen() || ::fstat(parent.descriptor(), &status) != 0 ||
            status.st_dev != way_.back().device || status.st_ino != way_.back().inode) {
            return false;
        }
        open_ = std::move(parent);
        static_cast<void>(::unlinkat(open_.descriptor(), name.c_str(), AT_REMOVEDIR));
        return true;
    }

    File open_;
    std::vector<Step> way_;
};

}  // namespace

bool removeTree(const std::filesystem::path& path) {
    if (::unlink(path.c_str()) == 0) {
        return true;
    }
    return errno == EISDIR && Remover().remove(AT_FDCWD, path.native());
}

}  // namespace pellumar
