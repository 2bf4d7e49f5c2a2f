#include "CorvaleKit/reports/WorksheetPart.h"

#include <algorithm>
#include <charconv>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/base/WorkbookLimits.h"
#include "CorvaleKit/reports/CellShape.h"
#include "CorvaleKit/reports/ColumnLetters.h"
#include "CorvaleKit/reports/StyleSheet.h"
#include "CorvaleKit/reports/XMLText.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale {

namespace {

constexpr std::string_view worksheetStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\""
    " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">";

constexpr std::string_view frozenHeader =
    "<sheetViews><sheetView workbookViewId=\"0\">"
    "<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/></sheetView></sheetViews>";

// The style attribute of every cell format.
constexpr std::array<std::string_view, 3 * styleCount> styleAttributes{
    " s=\"0\"",  " s=\"1\"",  " s=\"2\"",  " s=\"3\"",  " s=\"4\"",  " s=\"5\"",  " s=\"6\"",  " s=\"7\"",
    " s=\"8\"",  " s=\"9\"",  " s=\"10\"", " s=\"11\"", " s=\"12\"", " s=\"13\"", " s=\"14\"", " s=\"15\"",
    " s=\"16\"", " s=\"17\"", " s=\"18\"", " s=\"19\"", " s=\"20\"", " s=\"21\"", " s=\"22\"", " s=\"23\"",
};

std::string_view styleAttribute(XLSXWriter::Style style) {
    return style == XLSXWriter::Style::plain ? std::string_view() : styleAttributes[static_cast<std::size_t>(style)];
}

std::string_view styleAttribute(XLSXWriter::Style style, const CellShape::DateSerial& date) {
    return styleAttributes[static_cast<std::size_t>(style) + (date.hasTime() ? 2 : 1) * styleCount];
}

// Most guesses fall short by half; one far beyond would ask for memory that no machine has.
std::size_t guessedSize(const WorksheetPart::Layout& layout) {
    constexpr std::size_t largestGuess = std::size_t{1} << 30U;
    constexpr std::size_t bytesOfCell = 24;
    const std::size_t cells = std::max<std::size_t>(layout.cellsOfFirstRow, 1);
    return layout.rows > largestGuess / cells / bytesOfCell ? largestGuess : layout.rows * cells * bytesOfCell + 512;
}

constexpr std::string_view markBehind = " […]";
static_assert(markBehind.substr(1) == WorksheetPart::leftOutMark);

// What a cell holds of a longer text, without the mark that more follows.
std::string_view cutToFit(std::string_view text, std::string_view mark) {
    std::size_t units = Utf8::scalarCount(mark);
    std::size_t end = 0;
    while (end < text.size()) {
        const Utf8::Scalar scalar = Utf8::scalarAt(text, end);
        units += scalar.value > 0xFFFF ? 2 : 1;
        if (units > WorkbookLimits::textLength) {
            break;
        }
        end += scalar.length;
    }
    return text.substr(0, end);
}

void appendText(std::string& xml, std::string_view text) {
    if (WorksheetPart::fitsCell(text)) {
        XMLText::appendEscaped(xml, text);
    } else {
        XMLText::appendEscaped(xml, cutToFit(text, markBehind));
        xml += markBehind;
    }
}

// Puts the few bytes of a cell together, so that the long string is appended to once instead of six times. The longest
// is the start of a text: 14 letters, 20 digits and 60 bytes of markup.
class CellStart {
public:
    CellStart& operator<<(std::string_view piece) {
        m_size += piece.copy(m_bytes.data() + m_size, piece.size());
        return *this;
    }
    std::string_view view() const { return {m_bytes.data(), m_size}; }

private:
    std::array<char, 160> m_bytes;  // not filled: only what was put there is read
    std::size_t m_size = 0;
};

}  // namespace

bool WorksheetPart::fitsCell(std::string_view text) {
    return text.size() <= WorkbookLimits::textLength || cutToFit(text, {}).size() == text.size();
}

WorksheetPart::WorksheetPart(const Layout& layout)
    : m_announcedRows(layout.rows), m_mostBytes(layout.mostBytes), m_autoFilter(layout.autoFilter) {
    m_xml.reserve(guessedSize(layout));
    m_xml += worksheetStart;
    if (layout.freezeHeader && layout.rows >= 2) {
        m_xml += frozenHeader;
    }
    if (!layout.widths.empty()) {
        writeWidths(layout.widths);
    }
    m_xml += "<sheetData>";
}

void WorksheetPart::writeWidths(std::span<const double> widths) {
    m_xml += "<cols>";
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        std::array<char, 400> width{};
        const auto end =
            std::to_chars(width.data(), width.data() + width.size(), widths[i], std::chars_format::fixed, 1).ptr;
        m_xml += "<col min=\"";
        m_xml += number;
        m_xml += "\" max=\"";
        m_xml += number;
        m_xml += "\" width=\"";
        m_xml.append(width.data(), static_cast<std::size_t>(end - width.data()));
        m_xml += "\" customWidth=\"1\"/>";
    }
    m_xml += "</cols>";
}

void WorksheetPart::beginRow() {
    ++m_row;
    m_column = 0;
    char* end = std::to_chars(m_rowDigits.data(), m_rowDigits.data() + m_rowDigits.size(), m_row).ptr;
    *end++ = '"';
    m_rowDigitCount = static_cast<std::size_t>(end - m_rowDigits.data());
    m_xml += "<row r=\"";
    m_xml.append(m_rowDigits.data(), m_rowDigitCount);
    m_xml += '>';
}

void WorksheetPart::cell(std::string_view value, Style style, bool numeric) {
    const std::size_t column = m_column++;
    if (value.empty() && style == Style::plain) {
        return;
    }
    CellStart start;
    start << columnStart(column) << std::string_view(m_rowDigits.data(), m_rowDigitCount);
    const auto date = numeric ? CellShape::dateSerial(value) : std::nullopt;
    if (value.empty()) {
        m_xml += (start << styleAttribute(style) << "/>").view();
    } else if (date) {
        m_xml += (start << styleAttribute(style, *date) << "><v>" << date->text() << "</v></c>").view();
    } else if (numeric && CellShape::isPlainNumber(value)) {
        m_xml += (start << styleAttribute(style) << "><v>" << value << "</v></c>").view();
    } else {
        m_xml += (start << styleAttribute(style) << " t=\"inlineStr\"><is><t xml:space=\"preserve\">").view();
        appendText(m_xml, value);
        m_xml += "</t></is></c>";
    }
}

const std::string& WorksheetPart::columnStart(std::size_t column) {
    while (m_columnStarts.size() <= column) {
        m_columnStarts.push_back("<c r=\"" + columnLetters(m_columnStarts.size()));
    }
    return m_columnStarts[column];
}

void WorksheetPart::endRow() {
    m_widestRow = std::max(m_widestRow, m_column);
    m_xml += "</row>";
    if (m_xml.size() > m_mostBytes) {
        // Thin rows of a wide table become many times their own size: it must not grow on until memory ends.
        throw ZipWriter::TooLarge();
    }
}

std::string WorksheetPart::finish() {
    CORVALE_REQUIRE(m_row == m_announcedRows, "a worksheet was given another number of rows than was announced");
    m_xml += "</sheetData>";
    if (m_autoFilter && m_row >= 2 && m_widestRow >= 1) {
        m_xml += "<autoFilter ref=\"A1:";
        m_xml += columnLetters(m_widestRow - 1);
        m_xml += std::to_string(m_row);
        m_xml += "\"/>";
    }
    m_xml += "</worksheet>";
    return std::move(m_xml);
}

}  // namespace corvale
