#include "support/stoppable/StoppableFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>
#include <utility>

#include "support/Process.h"

namespace pellumar::test {
namespace {

constexpr std::chrono::seconds kPatience(20);

dev_t deviceOf(const std::filesystem::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

}  // namespace

std::string StoppableFolder::whyNot() {
    const int fuse = ::open("/dev/fuse", O_RDWR | O_CLOEXEC);
    if (fuse < 0) {
        return std::string("no folder can be served here: /dev/fuse: ") + std::strerror(errno);
    }
    ::close(fuse);
    return {};
}

StoppableFolder::StoppableFolder(const std::filesystem::path& source, std::filesystem::path place)
    : place_(std::move(place)) {
    const dev_t before = deviceOf(place_);
    server_ = ::fork();
    if (server_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::execl(STOPPABLE_FOLDER_SERVER,
                STOPPABLE_FOLDER_SERVER,
                source.c_str(),
                place_.c_str(),
                nullptr);
        ::_exit(127);
    }
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (deviceOf(place_) == before && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_NE(deviceOf(place_), before) << "the folder is not served";
}

StoppableFolder::~StoppableFolder() {
    ::kill(server_, SIGKILL);
    ::waitpid(server_, nullptr, 0);
    // Others than the superuser need the help of the system's program.
    if (::umount2(place_.c_str(), MNT_DETACH) != 0) {
        static_cast<void>(runProcess({"fusermount3", "-u", "-z", place_.string()}));
    }
}

void StoppableFolder::stop() const {
    EXPECT_EQ(::kill(server_, SIGSTOP), 0);
    int status = 0;
    EXPECT_EQ(::waitpid(server_, &status, WUNTRACED), server_);
    EXPECT_TRUE(WIFSTOPPED(status));
}

void StoppableFolder::goOn() const {
    EXPECT_EQ(::kill(server_, SIGCONT), 0);
}

}  // namespace pellumar::test
