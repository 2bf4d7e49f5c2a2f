#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

// Inputs for running a fast form against a slow one.
namespace corvale::AllTexts {

using Alphabet = std::vector<std::string_view>;

template <typename Visit>
void forEachFrom(std::string& start, const Alphabet& alphabet, std::size_t longest, const Visit& visit) {
    visit(start);
    if (longest > 0) {
        for (const auto letter : alphabet) {
            start += letter;
            forEachFrom(start, alphabet, longest - 1, visit);
            start.resize(start.size() - letter.size());
        }
    }
}

// Calls visit(text) for every text of at most `longest` letters, the empty one first.
template <typename Visit>
void forEach(const Alphabet& alphabet, std::size_t longest, const Visit& visit) {
    std::string text;
    forEachFrom(text, alphabet, longest, visit);
}

inline std::string random(const Alphabet& alphabet, std::size_t longest, std::mt19937& source) {
    std::string text;
    for (auto left = source() % (longest + 1); left > 0; --left) {
        text += alphabet[source() % alphabet.size()];
    }
    return text;
}

}  // namespace corvale::AllTexts
