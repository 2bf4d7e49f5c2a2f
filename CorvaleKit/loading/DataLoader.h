#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataTable.h"
#include "CorvaleKit/loading/XLSX.h"

// Turns one file chosen by the user into a table.
namespace corvale::DataLoader {

// Why a file gives no table; what() is the text for the user.
class Failure : public UserFailure {
public:
    enum class Kind : std::uint8_t { numbersFile, oldExcel, notSpreadsheet, empty, emptySheet };

    // `fileName` goes into the message; emptySheet has none.
    Failure(Kind kind, std::string_view fileName);

    Kind kind() const { return m_kind; }
    const std::string& fileName() const { return m_fileName; }

private:
    Kind m_kind;
    std::string m_fileName;
};

// Takes the whole file; `fileName` is its name with extension, without folders. `sheet` is a 0-based index, ignored for
// text files; `headerRow` a 1-based source row number, chosen automatically when absent. Throws Failure, XLSX::Failure
// or ZipReader::Failure. Linear. For text files peak memory is the bytes and 8 bytes a cell; those in UTF-16, in
// Windows-1252 or with bytes to repair are copied first, so that up to two copies in UTF-8 are held beside the bytes.
DataTable load(Bytes bytes, std::string_view fileName, std::int64_t sheet = 0,
               std::optional<std::int64_t> headerRow = std::nullopt);

// The same for the sheet that `choose` picks, which is not asked about text files; what it throws comes through.
DataTable load(Bytes bytes, std::string_view fileName, const XLSX::SheetChoice& choose,
               std::optional<std::int64_t> headerRow = std::nullopt);

// True when the file is read as a workbook, by its name or its first bytes.
bool isWorkbook(std::string_view bytes, std::string_view fileName);

// Throws Failure for the kinds of file that are refused from the name alone.
void refuseByName(std::string_view fileName);

}  // namespace corvale::DataLoader
