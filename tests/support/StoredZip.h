#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Whole ZIP archives of uncompressed members, and the smallest workbooks, for tests of what reads them.
namespace corvale::StoredZip {

using Members = std::vector<std::pair<std::string, std::string>>;

inline std::uint32_t crc32(std::string_view bytes) {
    std::uint32_t crc = ~0U;
    for (const char c : bytes) {
        crc ^= static_cast<std::uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit) {
            crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~crc;
}

inline std::string number(std::uint64_t value, unsigned bytes) {
    std::string text;
    for (unsigned i = 0; i < bytes; ++i) {
        text += static_cast<char>(value & 0xFFU);
        value >>= 8U;
    }
    return text;
}

// The fields that a local header and a directory record share, from the flags to the length of the extra field.
inline std::string sharedFields(std::string_view path, std::string_view content) {
    constexpr unsigned utf8Names = 1U << 11U;
    return number(utf8Names, 2) + number(0, 2) + number(0, 4) + number(crc32(content), 4) + number(content.size(), 4) +
           number(content.size(), 4) + number(path.size(), 2) + number(0, 2);
}

inline std::string archive(const Members& members) {
    std::string bytes;
    std::string directory;
    for (const auto& [path, content] : members) {
        const std::string fields = sharedFields(path, content);
        directory += "PK\x01\x02" + number(20, 2) + number(20, 2) + fields + number(0, 8) + number(0, 2) +
                     number(bytes.size(), 4) + path;
        bytes += "PK\x03\x04" + number(20, 2) + fields + path + content;
    }
    const std::string end = "PK\x05\x06" + number(0, 4) + number(members.size(), 2) + number(members.size(), 2) +
                            number(directory.size(), 4) + number(bytes.size(), 4) + number(0, 2);
    return bytes + directory + end;
}

// A workbook of sheets "Sheet1", "Sheet2" and so on, each given as what stands inside its sheetData element.
inline std::string workbook(const std::vector<std::string>& sheets) {
    Members members = {{"xl/workbook.xml", "<workbook><sheets>"}};
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        members[0].second += "<sheet name=\"Sheet" + number + "\"/>";
        members.emplace_back("xl/worksheets/sheet" + number + ".xml",
                             "<worksheet><sheetData>" + sheets[i] + "</sheetData></worksheet>");
    }
    members[0].second += "</sheets></workbook>";
    return archive(members);
}

// A row of texts for a sheet; they hold no markup.
inline std::string row(const std::vector<std::string>& cells) {
    std::string xml = "<row>";
    for (const auto& cell : cells) {
        xml += "<c t=\"str\"><v>" + cell + "</v></c>";
    }
    return xml + "</row>";
}

}  // namespace corvale::StoredZip
