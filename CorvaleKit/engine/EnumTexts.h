#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace corvale {

// An enumerator and the text that stands for it in stored forms and reports.
template <typename Enum>
struct EnumText {
    Enum value;
    std::string_view text;
};

// Every enumerator of Enum in declaration order; each enumeration with stored texts specialises it.
template <typename Enum>
inline constexpr std::array<EnumText<Enum>, 0> enumTexts{};

// True when the table holds the enumerators 0, 1, 2 … in order; what each specialisation asserts.
template <typename Enum>
constexpr bool enumTextsAreInOrder() {
    const auto& texts = enumTexts<Enum>;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (static_cast<std::size_t>(texts[i].value) != i) {
            return false;
        }
    }
    return !texts.empty();
}

template <typename Enum>
constexpr std::string_view rawValue(Enum value) {
    const auto& texts = enumTexts<Enum>;
    return texts[static_cast<std::size_t>(value)].text;
}

// None for a text that stands for no enumerator.
template <typename Enum>
constexpr std::optional<Enum> fromRawValue(std::string_view text) {
    for (const auto& entry : enumTexts<Enum>) {
        if (entry.text == text) {
            return entry.value;
        }
    }
    return std::nullopt;
}

}  // namespace corvale
