#include "CorvaleKit/loading/DataLoader.h"

#include <utility>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/TableBuilder.h"
#include "CorvaleKit/text/Text.h"

namespace corvale::DataLoader {

namespace {

// Lower-cased, without the dot; empty for names such as ".xls" and "a.".
std::string extensionOf(std::string_view fileName) {
    const auto dot = fileName.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string() : Text::lowercased(fileName.substr(dot + 1));
}

std::string messageFor(Failure::Kind kind, std::string_view fileName) {
    std::string quoted = "“" + std::string(fileName) + "”";
    switch (kind) {
        case Failure::Kind::numbersFile:
            return quoted +
                   " is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the exported "
                   "file.";
        case Failure::Kind::oldExcel:
            return quoted + " is an older Excel file (.xls). Save it as .xlsx or CSV first.";
        case Failure::Kind::notSpreadsheet:
            return quoted + " doesn’t look like a CSV or Excel file.";
        case Failure::Kind::empty:
            return quoted + " is empty.";
        case Failure::Kind::emptySheet:
            return "That sheet is empty.";
    }
    return quoted;
}

DataTable loadWorkbook(Bytes bytes, std::string_view fileName, const XLSX::SheetChoice& choose,
                       std::optional<std::int64_t> headerRow) {
    const CellRows rows(XLSX::readSheet(bytes.view(), choose));
    DataTable table = TableBuilder::build(rows, std::string(fileName), headerRow);
    if (table.headers().empty()) {
        throw Failure(Failure::Kind::emptySheet, {});
    }
    return table;
}

DataTable loadText(Bytes bytes, std::string_view fileName, std::optional<std::int64_t> headerRow) {
    Bytes text = CSV::decodeText(std::move(bytes));
    if (!CSV::looksLikeText(text.view())) {
        throw Failure(Failure::Kind::notSpreadsheet, fileName);
    }
    const auto delimiter = extensionOf(fileName) == "tsv" ? std::optional('\t') : std::nullopt;
    const CellRows rows(CSV::parse(std::move(text), delimiter));
    DataTable table = TableBuilder::build(rows, std::string(fileName), headerRow);
    if (table.headers().empty()) {
        throw Failure(Failure::Kind::empty, fileName);
    }
    return table;
}

}  // namespace

Failure::Failure(Kind kind, std::string_view fileName)
    : UserFailure(messageFor(kind, fileName)), m_kind(kind), m_fileName(fileName) {}

DataTable load(Bytes bytes, std::string_view fileName, std::int64_t sheet, std::optional<std::int64_t> headerRow) {
    const auto choose = [sheet](const std::vector<XLSX::Sheet>&) { return sheet; };
    return load(std::move(bytes), fileName, choose, headerRow);
}

DataTable load(Bytes bytes, std::string_view fileName, const XLSX::SheetChoice& choose,
               std::optional<std::int64_t> headerRow) {
    refuseByName(fileName);
    return isWorkbook(bytes.view(), fileName) ? loadWorkbook(std::move(bytes), fileName, choose, headerRow)
                                              : loadText(std::move(bytes), fileName, headerRow);
}

bool isWorkbook(std::string_view bytes, std::string_view fileName) {
    constexpr std::string_view localFileHeader = "PK\x03\x04";
    return extensionOf(fileName) == "xlsx" || bytes.starts_with(localFileHeader);
}

void refuseByName(std::string_view fileName) {
    const std::string extension = extensionOf(fileName);
    if (extension == "numbers") {
        throw Failure(Failure::Kind::numbersFile, fileName);
    }
    if (extension == "xls") {
        throw Failure(Failure::Kind::oldExcel, fileName);
    }
}

}  // namespace corvale::DataLoader
