#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/text/Utf8.h"

namespace XLSX = corvale::XLSX;

namespace {

constexpr std::int64_t customId = 164;

void requireLiteralsSayNothing(const std::string& code, XLSX::NumberFormat format) {
    // A mark at the start would be one character with what comes before it.
    if (!corvale::Utf8::isAscii(code.substr(0, 1))) {
        return;
    }
    for (const std::string literal : {"\"yyyy hh 0%\"", "[Red]", "[$-409]", "\\d", "\\\"", "\"\"", "[\"]"}) {
        CORVALE_REQUIRE(XLSX::numberFormat(customId, literal + code) == format, "a literal text changed the format");
    }
}

void requireFormat(XLSX::NumberFormat format) {
    const bool isPadded = format.kind == XLSX::NumberFormat::Kind::zeroPadded;
    CORVALE_REQUIRE(isPadded ? format.digits >= 2 : format.digits == 0, "the digits do not fit the kind");
}

void requireStableText(std::string_view raw, XLSX::NumberFormat format, bool date1904) {
    const std::string text = XLSX::formatCell(raw, format, date1904);
    CORVALE_REQUIRE(raw.empty() == text.empty(), "a text came from or went to nothing");
    const std::string general = XLSX::formatCell(raw, {}, false);
    CORVALE_REQUIRE(XLSX::formatCell(general, {}, false) == general, "a general number reads as another");
    CORVALE_REQUIRE(format != XLSX::NumberFormat{} || text == general, "the date system changed a general number");
}

}  // namespace

// A first byte chooses the date system; the rest is a format code, a line break and a raw value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t codeEnd = std::min(text.find('\n'), text.size());
    const std::string code(text.substr(0, codeEnd));
    const auto format = XLSX::numberFormat(customId, code);
    requireFormat(format);
    requireLiteralsSayNothing(code, format);
    requireStableText(text.substr(std::min(codeEnd + 1, text.size())), format, data[0] % 2 != 0);
    return 0;
}
