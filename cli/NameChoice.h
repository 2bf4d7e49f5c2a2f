#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Failures.h"

// Names that the user types to choose one of several.
namespace corvale::Cli {

// A column that was asked for and is not there.
class ColumnFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// The first name that equals `choice`, else the first that does ignoring letter case.
std::optional<std::size_t> indexOfName(const std::vector<std::string>& names, std::string_view choice);

// “a”, “b” and “c”; the first ten, and how many there are more.
std::string quotedList(const std::vector<std::string>& names);

}  // namespace corvale::Cli
