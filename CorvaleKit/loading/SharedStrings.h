#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/ByteArena.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

// The strings of a workbook that its cells refer to by number, end to end in one block.
struct SharedStrings {
    ByteArena texts;
    std::vector<std::uint64_t> ends;  // of each string in the block; it starts where the one before ends
};

// Of the part xl/sharedStrings.xml. A string of several runs is their concatenation; phonetic guides are left out.
SharedStrings sharedStrings(std::string_view part, XMLEvents::Parser parse = XMLEvents::parse);

}  // namespace corvale::XLSX
