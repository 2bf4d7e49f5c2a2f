#include "cli/Output.h"

#include <cerrno>
#include <system_error>

namespace corvale::Cli {

namespace {

[[noreturn]] void fail(int error) {
    throw OutputFailure("The output can’t be written: " + std::generic_category().message(error) + ".");
}

}  // namespace

void Output::write(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), m_stream) != text.size()) {
        fail(errno);
    }
}

void Output::flush() {
    if (std::fflush(m_stream) != 0) {
        fail(errno);
    }
}

}  // namespace corvale::Cli
