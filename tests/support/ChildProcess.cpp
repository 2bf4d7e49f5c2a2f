#include "tests/support/ChildProcess.h"

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <system_error>
#include <thread>

namespace corvale::ChildProcess {

namespace {

constexpr uid_t nobody = 65534;

void require(bool succeeded) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category());
    }
}

std::string resultOf(const std::function<std::string()>& work) {
    try {
        return work();
    } catch (const std::exception& failure) {
        return std::string("threw: ") + failure.what();
    }
}

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count <= 0) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> piece{};
    for (ssize_t count = 0; (count = ::read(descriptor, piece.data(), piece.size())) > 0;) {
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace

std::string run(const std::function<std::string()>& work) {
    std::array<int, 2> ends{};
    require(::pipe(ends.data()) == 0);
    const pid_t child = ::fork();
    require(child >= 0);
    if (child == 0) {
        writeAll(ends[1], resultOf(work));
        // Nothing of the tests is to be ended twice.
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string text = readAll(ends[0]);
    ::close(ends[0]);
    require(::waitpid(child, nullptr, 0) == child);
    return text;
}

void runAndKill(const std::function<void()>& work, const std::function<bool()>& isTime) {
    const pid_t child = ::fork();
    require(child >= 0);
    if (child == 0) {
        resultOf([&work] {
            work();
            return std::string();
        });
        ::_exit(0);
    }
    const auto hasEnded = [child] {
        siginfo_t ended{};
        require(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT) == 0);
        return ended.si_pid != 0;
    };
    while (!isTime() && !hasEnded()) {
        std::this_thread::yield();
    }
    require(::kill(child, SIGKILL) == 0);
    require(::waitpid(child, nullptr, 0) == child);
}

void stepDown() {
    if (::geteuid() == 0) {
        require(::setgroups(0, nullptr) == 0);
        require(::setresgid(nobody, nobody, nobody) == 0);
        require(::setresuid(nobody, nobody, nobody) == 0);
    }
}

void limitFileSizes(unsigned long bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    require(::setrlimit(RLIMIT_FSIZE, &limit) == 0);
}

bool mountSmallDisk(const std::string& folder, unsigned long bytes) {
    const std::string user = std::to_string(::getuid());
    const std::string group = std::to_string(::getgid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    // Who has no name in the new space can own no file there.
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    const std::string size = "size=" + std::to_string(bytes);
    return ::mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

}  // namespace corvale::ChildProcess
