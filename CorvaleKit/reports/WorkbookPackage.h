#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/reports/ZipWriter.h"

namespace corvale {

// The archive of a workbook: the parts that every workbook has, then the worksheets, each compressed as it comes.
class WorkbookPackage {
public:
    // Names as wished, in tab order; SheetNames cleans them.
    explicit WorkbookPackage(const std::vector<std::string>& sheetNames);

    // The XML of the next worksheet; one call a name. Throws ZipWriter::TooLarge.
    void addSheet(std::string_view part);

    // The file's bytes; the package is spent afterwards. Throws ZipWriter::TooLarge.
    std::string finish();

private:
    ZipWriter m_archive;
    std::size_t m_sheetCount;
    std::size_t m_addedSheets = 0;
};

}  // namespace corvale
