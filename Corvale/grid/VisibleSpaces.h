#pragma once

#include <QString>
#include <string_view>
#include <vector>

namespace corvale {

// A text whose white space can be seen: · a space, → a tab, ⏎ a line break, ␣ a space that does not break.
struct VisibleSpaces {
    QString text;
    std::vector<int> origins;  // for each UTF-16 unit of `text`, the one of the original that it stands for

    static VisibleSpaces of(std::string_view original);

    friend bool operator==(const VisibleSpaces&, const VisibleSpaces&) = default;
};

// True for texts that are equal without their white space and line breaks.
bool differOnlyInSpaces(std::string_view a, std::string_view b);

}  // namespace corvale
