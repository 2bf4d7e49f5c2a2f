#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace corvale {

// A failure whose what() is a complete sentence in UTF-8, shown to the user as it stands.
class UserFailure : public std::runtime_error {
public:
    explicit UserFailure(const std::string& message) : std::runtime_error(message) {}

    std::string message() const { return what(); }
};

// The caller asked for a stop. No UserFailure, so that nobody shows it by accident: a cancelled job ends silently.
class Cancelled : public std::exception {
public:
    const char* what() const noexcept override { return "cancelled"; }
};

// A stored form that does not hold what it should. For logs and tests; settings fall back instead of showing it.
class DecodingError : public std::runtime_error {
public:
    explicit DecodingError(const std::string& description) : std::runtime_error(description) {}
};

}  // namespace corvale
