#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/SharedStrings.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/loading/ZipReader.h"

namespace corvale::XLSX {

// An opened workbook: what its sheets need to be read. A view of the file's bytes.
struct Workbook {
    std::string_view archive;
    std::vector<ZipReader::Entry> directory;
    std::vector<Sheet> sheets;  // at least one
    SharedStrings strings;
    std::vector<NumberFormat> formats;  // by style index
    bool date1904 = false;

    std::optional<Bytes> part(std::string_view path) const { return ZipReader::member(directory, archive, path); }
};

// Throws XLSX::Failure, or ZipReader::Failure for a damaged member.
Workbook openWorkbook(std::string_view bytes);

}  // namespace corvale::XLSX
