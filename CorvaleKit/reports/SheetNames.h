#pragma once

#include <set>
#include <string>
#include <string_view>

namespace corvale {

// Makes the tab names of one workbook such as spreadsheet programs accept: without []:*?/\, at most 31 characters, none
// twice without regard to letter case.
class SheetNames {
public:
    // The name cleaned, and numbered ("Changes 2") where an earlier one has taken it; "Sheet" when nothing is left.
    std::string cleaned(std::string_view name);

private:
    bool take(const std::string& name);

    std::set<std::string> m_used;  // lower-cased
};

}  // namespace corvale
