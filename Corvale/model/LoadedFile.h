#pragma once

#include <QUrl>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/DataTable.h"

namespace corvale {

// The older file or the newer one.
enum class Side : std::uint8_t { before, after };

// One opened file with the choices made about it. Copying shares the bytes and the table.
struct LoadedFile {
    QUrl url;                           // empty for a sample, which is on no disk
    std::string name;                   // without folders, as shown to the user
    std::shared_ptr<const Bytes> data;  // as read, so that another sheet or header row needs no disk; none for a sample
    std::vector<std::string> sheetNames;    // of a workbook; empty for text files
    std::int64_t sheet = 0;                 // index into sheetNames
    std::optional<std::int64_t> headerRow;  // 1-based source row number; none: chosen automatically
    DataTable table;
};

}  // namespace corvale
