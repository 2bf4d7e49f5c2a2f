#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvale::TestSupport {

// The text that many times in a row.
inline std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (; times > 0; --times) {
        all += text;
    }
    return all;
}

}  // namespace corvale::TestSupport
