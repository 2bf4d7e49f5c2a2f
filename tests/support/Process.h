#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvale::TestSupport {

// How a program ended and what it printed.
struct ProcessResult {
    int status = -1;  // -1 when a signal ended it
    int signal = 0;
    bool wasKilled = false;  // it outlived the limit
    std::string output;
    std::string error;
};

struct ProcessSettings {
    enum class Stream { pipe, terminal };

    // On top of this process's environment, from which what concerns terminals and locales is taken out.
    std::vector<std::pair<std::string, std::string>> environment;
    std::filesystem::path folder = std::filesystem::current_path();
    Stream output = Stream::pipe;
    Stream error = Stream::pipe;
    unsigned short terminalColumns = 80;
    std::chrono::milliseconds limit{std::chrono::seconds(120)};
};

// A running program. One that runs longer than the limit, or whose streams another keeps open as long, is killed with
// all that it started, so that no test waits for ever.
class Process {
public:
    // Throws std::system_error when the program cannot be started.
    Process(const std::filesystem::path& program, std::vector<std::string> arguments, ProcessSettings settings = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // To the program alone.
    void send(int signal) const;
    bool hasEnded() const;
    // Reads on until `text` has come on standard error; false when the program ended first.
    bool waitForError(std::string_view text) { return waitFor(m_error, text); }
    // The same of standard output. What the program writes until finish() is called fills the pipe and then waits.
    bool waitForOutput(std::string_view text) { return waitFor(m_output, text); }
    // Closes our end of its standard output.
    void closeOutput();
    ProcessResult finish();

private:
    // One stream of the program: our end of it, and what came out.
    struct Channel {
        int descriptor = -1;
        std::string text;
    };

    bool isOpen() const { return m_output.descriptor >= 0 || m_error.descriptor >= 0; }
    bool waitFor(const Channel& channel, std::string_view text);
    void readOn();
    static void readPiece(Channel& channel);
    void killWhenLate();

    pid_t m_id = -1;
    Channel m_output;
    Channel m_error;
    std::chrono::steady_clock::time_point m_deadline;
    bool m_wasKilled = false;
};

ProcessResult runProcess(const std::filesystem::path& program, std::vector<std::string> arguments,
                         ProcessSettings settings = {});

}  // namespace corvale::TestSupport
