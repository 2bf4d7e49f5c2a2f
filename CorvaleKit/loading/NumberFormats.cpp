#include <string>

#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/text/Text.h"

namespace corvale::XLSX {

namespace {

using Kind = NumberFormat::Kind;

// The characters after an opening quote or bracket and its closing partner; all of them when it is never closed.
std::string_view after(std::string_view code, char closing) {
    const std::size_t end = code.find(closing);
    return end == std::string_view::npos ? std::string_view{} : code.substr(end + 1);
}

// The code in lower case without what it shows literally (escaped and quoted characters) and without its bracketed
// colours, conditions and locale tags.
std::string placeholders(std::string_view code) {
    std::string kept;
    while (!code.empty()) {
        const char c = code.front();
        code.remove_prefix(1);
        if (c == '\\') {
            code.remove_prefix(Text::firstCharacters(code, 1).size());
        } else if (c == '"') {
            code = after(code, '"');
        } else if (c == '[') {
            code = after(code, ']');
        } else {
            kept += c;
        }
    }
    return Text::lowercased(kept);
}

Kind dateOrTime(bool hasDay, bool hasHour, bool hasSecond) {
    if (!hasDay) {
        return Kind::time;
    }
    return hasHour || hasSecond ? Kind::dateTime : Kind::date;
}

NumberFormat classified(std::string_view code) {
    const std::string shown = placeholders(code);
    const auto has = [&](std::string_view letters) { return shown.find_first_of(letters) != std::string::npos; };
    const bool hasDay = has("yd");
    const bool hasHour = has("h");
    const bool hasSecond = has("s");
    if (hasDay || hasHour || hasSecond) {
        return {dateOrTime(hasDay, hasHour, hasSecond)};
    }
    // Next to digits an m is a text such as a unit; alone it is the name of a month.
    if (has("m") && !has("0#")) {
        return {Kind::date};
    }
    if (has("%")) {
        return {Kind::percent};
    }
    if (shown.size() >= 2 && shown.find_first_not_of('0') == std::string::npos) {
        return {Kind::zeroPadded, static_cast<std::int64_t>(shown.size())};
    }
    return {};
}

struct BuiltInRange {
    std::int64_t first;
    std::int64_t last;
    Kind kind;
};

// ECMA-376 18.8.30, with the ids that East Asian locales give to dates.
constexpr BuiltInRange builtInRanges[] = {
    {9, 10, Kind::percent},
    {14, 17, Kind::date},
    {18, 21, Kind::time},
    {22, 22, Kind::dateTime},
    {27, 36, Kind::date},
    {45, 47, Kind::time},
    {50, 58, Kind::date},
};

}  // namespace

NumberFormat numberFormat(std::int64_t numFmtId, std::optional<std::string_view> code) {
    for (const auto& range : builtInRanges) {
        if (numFmtId >= range.first && numFmtId <= range.last) {
            return {range.kind};
        }
    }
    return code ? classified(*code) : NumberFormat{};
}

}  // namespace corvale::XLSX
