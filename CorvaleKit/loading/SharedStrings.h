#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/ByteArena.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

// Strings beyond those are not kept: a part of a gigabyte, which takes a megabyte in the file, could hold three times
// as many empty ones.
inline constexpr std::size_t mostStrings = std::size_t{1} << 26U;

// The strings of a workbook that its cells refer to by number, end to end in one block.
struct SharedStrings {
    ByteArena texts;
    std::vector<std::uint64_t> ends;  // of each string in the block; it starts where the one before ends
};

// Of the part xl/sharedStrings.xml. A string of several runs is their concatenation; phonetic guides are left out.
// The first `most` are kept.
SharedStrings sharedStrings(std::string_view part, std::size_t most = mostStrings,
                            XMLEvents::Parser parse = XMLEvents::parse);

}  // namespace corvale::XLSX
