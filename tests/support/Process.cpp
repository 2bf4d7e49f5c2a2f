#include "tests/support/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <set>
#include <system_error>

extern char** environ;

namespace corvale::TestSupport {

namespace {

void check(bool succeeded, const char* what) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

void checkSpawn(int error, const char* what) {
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), what);
    }
}

struct Ends {
    int ours = -1;
    int theirs = -1;
};

Ends openPipe() {
    std::array<int, 2> ends{};
    check(::pipe2(ends.data(), O_CLOEXEC) == 0, "pipe");
    return {ends[0], ends[1]};
}

Ends openTerminal(unsigned short columns) {
    const int ours = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    check(ours >= 0 && ::grantpt(ours) == 0 && ::unlockpt(ours) == 0, "pseudo-terminal");
    const int theirs = ::open(::ptsname(ours), O_RDWR | O_NOCTTY | O_CLOEXEC);
    check(theirs >= 0, "pseudo-terminal");
    termios attributes{};
    check(::tcgetattr(theirs, &attributes) == 0, "tcgetattr");
    attributes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    check(::tcsetattr(theirs, TCSANOW, &attributes) == 0, "tcsetattr");
    const winsize size{24, columns, 0, 0};
    check(::ioctl(theirs, TIOCSWINSZ, &size) == 0, "TIOCSWINSZ");
    return {ours, theirs};
}

Ends openStream(ProcessSettings::Stream kind, unsigned short columns) {
    return kind == ProcessSettings::Stream::terminal ? openTerminal(columns) : openPipe();
}

std::vector<std::string> environmentFor(const ProcessSettings& settings) {
    std::set<std::string_view> dropped{"NO_COLOR", "COLUMNS", "TERM", "LANG", "LC_ALL", "LC_NUMERIC", "LOCPATH"};
    for (const auto& [name, value] : settings.environment) {
        dropped.insert(name);
    }
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        if (!dropped.contains(text.substr(0, text.find('=')))) {
            environment.emplace_back(text);
        }
    }
    for (const auto& [name, value] : settings.environment) {
        environment.push_back(name + "=" + value);
    }
    return environment;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

// The program leads a group of its own, so that whatever it starts can be killed with it. A runner that was started in
// the background has SIGINT ignored, and would hand that on.
void setAttributes(posix_spawnattr_t& attributes) {
    checkSpawn(::posix_spawnattr_setpgroup(&attributes, 0), "process group");
    sigset_t signals;
    sigemptyset(&signals);
    checkSpawn(::posix_spawnattr_setsigmask(&attributes, &signals), "signals");
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGPIPE);
    checkSpawn(::posix_spawnattr_setsigdefault(&attributes, &signals), "signals");
    checkSpawn(
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK),
        "attributes");
}

}  // namespace

Process::Process(const std::filesystem::path& program, std::vector<std::string> arguments, ProcessSettings settings)
    : m_deadline(std::chrono::steady_clock::now() + settings.limit) {
    const Ends output = openStream(settings.output, settings.terminalColumns);
    const Ends error = openStream(settings.error, settings.terminalColumns);
    m_output.descriptor = output.ours;
    m_error.descriptor = error.ours;

    posix_spawn_file_actions_t actions;
    checkSpawn(::posix_spawn_file_actions_init(&actions), "file actions");
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, output.theirs, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, error.theirs, STDERR_FILENO);
    ::posix_spawn_file_actions_addchdir_np(&actions, settings.folder.c_str());
    posix_spawnattr_t attributes;
    checkSpawn(::posix_spawnattr_init(&attributes), "attributes");
    setAttributes(attributes);

    arguments.insert(arguments.begin(), program.string());
    std::vector<std::string> environment = environmentFor(settings);
    const int failure = ::posix_spawnp(
        &m_id, program.c_str(), &actions, &attributes, pointers(arguments).data(), pointers(environment).data());
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(output.theirs);
    ::close(error.theirs);
    checkSpawn(failure, program.c_str());
}

Process::~Process() {
    if (m_id > 0) {
        ::kill(-m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
    }
    for (const Channel* channel : {&m_output, &m_error}) {
        if (channel->descriptor >= 0) {
            ::close(channel->descriptor);
        }
    }
}

void Process::send(int signal) const { check(::kill(m_id, signal) == 0, "kill"); }

void Process::closeOutput() {
    ::close(m_output.descriptor);
    m_output.descriptor = -1;
}

// The other end of a terminal that is closed reads as an error, of a pipe as the end.
void Process::readPiece(Channel& channel) {
    std::array<char, 65536> piece{};
    const ssize_t count = ::read(channel.descriptor, piece.data(), piece.size());
    if (count > 0) {
        channel.text.append(piece.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        ::close(channel.descriptor);
        channel.descriptor = -1;
    }
}

bool Process::hasEnded() const {
    siginfo_t ended{};
    return ::waitid(P_PID, static_cast<id_t>(m_id), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid != 0;
}

void Process::killWhenLate() {
    if (!m_wasKilled && std::chrono::steady_clock::now() > m_deadline) {
        ::kill(-m_id, SIGKILL);
        m_wasKilled = true;
    }
}

void Process::readOn() {
    std::array<pollfd, 2> polled{{{m_output.descriptor, POLLIN, 0}, {m_error.descriptor, POLLIN, 0}}};
    if (::poll(polled.data(), polled.size(), 100) > 0) {
        if (polled[0].revents != 0) {
            readPiece(m_output);
        }
        if (polled[1].revents != 0) {
            readPiece(m_error);
        }
    }
    killWhenLate();
}

bool Process::waitFor(const Channel& channel, std::string_view text) {
    while (channel.descriptor >= 0 && channel.text.find(text) == std::string::npos) {
        readOn();
    }
    return channel.text.find(text) != std::string::npos;
}

ProcessResult Process::finish() {
    while (isOpen()) {
        readOn();
    }
    int status = 0;
    while (::waitpid(m_id, &status, WNOHANG) == 0) {
        killWhenLate();
        ::poll(nullptr, 0, 1);
    }
    m_id = -1;
    ProcessResult result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.wasKilled = m_wasKilled;
    result.output = std::move(m_output.text);
    result.error = std::move(m_error.text);
    return result;
}

ProcessResult runProcess(const std::filesystem::path& program, std::vector<std::string> arguments,
                         ProcessSettings settings) {
    return Process(program, std::move(arguments), std::move(settings)).finish();
}

}  // namespace corvale::TestSupport
