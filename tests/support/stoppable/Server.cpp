// Shows the folder SOURCE at MOUNTPOINT by way of FUSE, until it is ended: stopped with SIGSTOP, it
// lets everybody hang who asks for anything there. Nothing is remembered by the kernel.
//
//   stoppable_folder_server SOURCE MOUNTPOINT

#define FUSE_USE_VERSION 31

#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

namespace {

std::string source;

std::string real(const char* path) {
    return source + path;
}

int answer(int result) {
    return result < 0 ? -errno : 0;
}

int listFolder(const char* path,
               void* buffer,
               fuse_fill_dir_t fill,
               off_t /*offset*/,
               fuse_file_info* /*file*/,
               fuse_readdir_flags /*flags*/) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(real(path).c_str()), &::closedir);
    if (!folder) {
        return -errno;
    }
    while (const dirent* entry = ::readdir(folder.get())) {
        fill(buffer, entry->d_name, nullptr, 0, fuse_fill_dir_flags(0));
    }
    return 0;
}

int openFile(const char* path, fuse_file_info* file) {
    const int number = ::open(real(path).c_str(), file->flags);
    file->fh = static_cast<std::uint64_t>(number);
    return answer(number);
}

int createFile(const char* path, mode_t mode, fuse_file_info* file) {
    const int number = ::open(real(path).c_str(), file->flags, mode);
    file->fh = static_cast<std::uint64_t>(number);
    return answer(number);
}

int descriptor(const fuse_file_info* file) {
    return static_cast<int>(file->fh);
}

fuse_operations operations() {
    fuse_operations all{};
    all.init = [](fuse_conn_info*, fuse_config* config) -> void* {
        config->entry_timeout = 0;
        config->attr_timeout = 0;
        config->negative_timeout = 0;
        return nullptr;
    };
    all.getattr = [](const char* path, struct stat* status, fuse_file_info*) {
        return answer(::lstat(real(path).c_str(), status));
    };
    all.readlink = [](const char* path, char* buffer, std::size_t size) {
        const ssize_t length = ::readlink(real(path).c_str(), buffer, size - 1);
        if (length >= 0) {
            buffer[length] = '\0';
        }
        return answer(static_cast<int>(length));
    };
    all.statfs = [](const char* path, struct statvfs* status) {
        return answer(::statvfs(real(path).c_str(), status));
    };
    all.readdir = listFolder;
    all.open = openFile;
    all.create = createFile;
    all.read = [](const char*, char* to, std::size_t size, off_t offset, fuse_file_info* file) {
        const ssize_t count = ::pread(descriptor(file), to, size, offset);
        return count < 0 ? -errno : static_cast<int>(count);
    };
    all.write = [](const char*, const char* bytes, std::size_t size, off_t at, fuse_file_info* to) {
        const ssize_t count = ::pwrite(descriptor(to), bytes, size, at);
        return count < 0 ? -errno : static_cast<int>(count);
    };
    all.release = [](const char*, fuse_file_info* file) {
        return answer(::close(descriptor(file)));
    };
    all.truncate = [](const char* path, off_t size, fuse_file_info*) {
        return answer(::truncate(real(path).c_str(), size));
    };
    all.mkdir = [](const char* path, mode_t mode) {
        return answer(::mkdir(real(path).c_str(), mode));
    };
    all.unlink = [](const char* path) { return answer(::unlink(real(path).c_str())); };
    all.rmdir = [](const char* path) { return answer(::rmdir(real(path).c_str())); };
    all.rename = [](const char* from, const char* to, unsigned) {
        return answer(::rename(real(from).c_str(), real(to).c_str()));
    };
    all.chmod = [](const char* path, mode_t mode, fuse_file_info*) {
        return answer(::chmod(real(path).c_str(), mode));
    };
    all.utimens = [](const char* path, const timespec* times, fuse_file_info*) {
        return answer(::utimensat(AT_FDCWD, real(path).c_str(), times, AT_SYMLINK_NOFOLLOW));
    };
    return all;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: stoppable_folder_server SOURCE MOUNTPOINT\n", stderr);
        return 2;
    }
    source = arguments[1];
    std::string foreground = "-f";
    char* const options[] = {arguments[0], arguments[2], foreground.data(), nullptr};
    const fuse_operations all = operations();
    return fuse_main(3, const_cast<char**>(options), &all, nullptr);
}
