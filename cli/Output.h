#pragma once

#include <cstdio>
#include <string_view>

#include "CorvaleKit/base/Failures.h"

namespace corvale::Cli {

// Standard output did not take all of the result.
class OutputFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// A buffered stream whose failures do not go unnoticed.
class Output {
public:
    // `stream` outlives this object, which does not close it.
    explicit Output(std::FILE* stream) : m_stream(stream) {}

    // Throws OutputFailure.
    void write(std::string_view text);
    // Writes what is buffered, to the last byte. Throws OutputFailure.
    void flush();

private:
    std::FILE* m_stream;
};

}  // namespace corvale::Cli
