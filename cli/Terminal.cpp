#include "cli/Terminal.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

#if __has_include(<unistd.h>)
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace corvale::Cli::Terminal {

namespace {

// Below this, nothing that is cut to fit can be read any more.
constexpr std::size_t leastWidth = 20;
constexpr std::size_t usualWidth = 80;

enum class Stream { output, error };

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view{} : std::string_view(value);
}

#if __has_include(<unistd.h>)
bool isTerminal(Stream stream) { return ::isatty(stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO) != 0; }

std::size_t terminalWidth() {
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualWidth;
}
#else
bool isTerminal(Stream) { return false; }
std::size_t terminalWidth() { return usualWidth; }
#endif

bool understandsEscapes() {
    const auto terminal = environment("TERM");
    return !terminal.empty() && terminal != "dumb";
}

std::optional<std::size_t> chosenWidth() {
    const auto columns = environment("COLUMNS");
    std::size_t width = 0;
    const char* end = columns.data() + columns.size();
    const auto [stop, error] = std::from_chars(columns.data(), end, width);
    return error == std::errc() && stop == end && width > 0 ? std::optional(width) : std::nullopt;
}

}  // namespace

TextStyle outputStyle() {
    TextStyle style;
    const bool terminal = isTerminal(Stream::output);
    style.colour = terminal && understandsEscapes() && environment("NO_COLOR").empty();
    style.width = chosenWidth();
    if (!style.width && terminal) {
        style.width = terminalWidth();
    }
    if (style.width && *style.width < leastWidth) {
        style.width = leastWidth;
    }
    return style;
}

bool canShowProgress() { return isTerminal(Stream::error) && understandsEscapes(); }

}  // namespace corvale::Cli::Terminal
