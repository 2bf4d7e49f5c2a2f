#include "cli/TableLoading.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <future>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/XLSX.h"
#include "cli/FileReading.h"
#include "cli/NameChoice.h"

namespace corvale::Cli {

namespace {

bool isNumber(std::string_view choice) {
    return !choice.empty() && std::all_of(choice.begin(), choice.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::int64_t numberOf(std::string_view digits) {
    std::int64_t number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc()) {
        throw SheetFailure("The workbook has no sheet " + std::string(digits) + ".");
    }
    return number;
}

std::vector<std::string> sheetNames(std::string_view workbook) {
    std::vector<std::string> names;
    for (XLSX::Sheet& sheet : XLSX::sheets(workbook)) {
        names.push_back(std::move(sheet.name));
    }
    return names;
}

SheetFailure noSuchSheet(const std::string& path, std::string_view choice, const std::vector<std::string>& names) {
    return SheetFailure(quotedPath(path) + " has no sheet “" + std::string(choice) + "”. It has " + quotedList(names) +
                        ".");
}

}  // namespace

std::int64_t sheetIndex(std::string_view workbook, const std::string& path, std::string_view choice) {
    if (isNumber(choice)) {
        return numberOf(choice) - 1;
    }
    const std::vector<std::string> names = sheetNames(workbook);
    const auto index = indexOfName(names, choice);
    if (!index) {
        throw noSuchSheet(path, choice, names);
    }
    return static_cast<std::int64_t>(*index);
}

DataTable loadTable(const FileChoice& file) {
    const std::string name = fileNameOf(file.path);
    DataLoader::refuseByName(name);
    Bytes bytes = readFile(file.path);
    const bool choosesSheet = file.sheet && DataLoader::isWorkbook(bytes.view(), name);
    const std::int64_t sheet = choosesSheet ? sheetIndex(bytes.view(), file.path, *file.sheet) : 0;
    return DataLoader::load(std::move(bytes), name, sheet, file.headerRow);
}

TablePair loadPair(const PairChoice& files) {
    std::future<DataTable> after = std::async(std::launch::async, [&] { return loadTable(files.after); });
    DataTable before = loadTable(files.before);
    return {std::move(before), after.get()};
}

}  // namespace corvale::Cli
