#include "Corvale/model/HeaderRowChoices.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

constexpr std::size_t shownTexts = 4;
constexpr std::size_t longestText = 18;  // in characters
constexpr std::size_t keptOfLonger = 17;

std::string shortened(std::string_view text) {
    return Text::hasMoreCharactersThan(text, longestText) ? std::string(Text::firstCharacters(text, keptOfLonger)) + "…"
                                                          : std::string(text);
}

std::string previewOf(const CellRow& row) {
    std::string preview;
    std::size_t texts = 0;
    for (const std::string_view cell : row) {
        const std::string_view text = Text::trimSpacesAndLineBreaks(cell);
        if (text.empty()) {
            continue;
        }
        if (++texts > shownTexts) {
            return preview + ", …";
        }
        preview += (preview.empty() ? "" : ", ") + shortened(text);
    }
    return preview;
}

}  // namespace

std::vector<HeaderRowChoice> headerRowChoices(const DataTable& table) {
    std::vector<HeaderRowChoice> choices;
    std::int64_t rowNumber = 0;
    for (const CellRow row : table.topRows()) {
        ++rowNumber;
        if (std::string preview = previewOf(row); !preview.empty()) {
            choices.push_back({rowNumber, std::move(preview)});
        }
    }
    return choices;
}

}  // namespace corvale
