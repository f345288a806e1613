#include "support/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace pellumar::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSignalExit = 128;

// Starts the program with both outputs on `output`; returns its id, or -1.
pid_t start(const std::vector<std::string>& command,
            const std::filesystem::path& folder,
            int output) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    if (!folder.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    }
    pid_t id = -1;
    const int error = posix_spawnp(&id, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? id : -1;
}

// Collects what arrives until the other end closes; false if the deadline came first.
bool collect(int input, Clock::time_point deadline, std::string& output) {
    std::array<char, 4096> buffer{};
    while (true) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd ready{.fd = input, .events = POLLIN, .revents = 0};
        const int count = ::poll(&ready, 1, static_cast<int>(std::max<decltype(left)>(left, 0)));
        if (count == 0) {
            return false;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        const ssize_t size = ::read(input, buffer.data(), buffer.size());
        if (size <= 0) {
            return true;
        }
        output.append(buffer.data(), static_cast<std::size_t>(size));
    }
}

}  // namespace

ProcessResult runProcess(const std::vector<std::string>& command,
                         const std::filesystem::path& folder,
                         std::chrono::milliseconds deadline) {
    ProcessResult result;
    std::array<int, 2> ends{};
    if (command.empty() || ::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return result;
    }
    const pid_t id = start(command, folder, ends[1]);
    ::close(ends[1]);
    if (id >= 0) {
        result.timedOut = !collect(ends[0], Clock::now() + deadline, result.output);
        if (result.timedOut) {
            ::kill(id, SIGKILL);
        }
        int status = 0;
        while (::waitpid(id, &status, 0) < 0 && errno == EINTR) {
        }
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalExit + WTERMSIG(status);
    }
    ::close(ends[0]);
    return result;
}

}  // namespace pellumar::test
