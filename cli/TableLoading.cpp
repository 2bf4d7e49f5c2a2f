#include "cli/TableLoading.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <future>
#include <system_error>
#include <utility>

#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/ZipReader.h"
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
        throw XLSX::Failure("The workbook has no sheet " + std::string(digits) + ".");
    }
    return number;
}

FileFailure named(const std::string& path, const UserFailure& failure) {
    return FileFailure(quotedPath(path) + ": " + failure.message());
}

// What is wrong inside a workbook is told without its name, which does for a file alone.
LoadedTable loadOneOfTwo(const FileChoice& file) {
    try {
        return loadTable(file);
    } catch (const XLSX::Failure& failure) {
        throw named(file.path, failure);
    } catch (const ZipReader::Failure& failure) {
        throw named(file.path, failure);
    } catch (const DataLoader::Failure& failure) {
        if (failure.kind() == DataLoader::Failure::Kind::emptySheet) {
            throw named(file.path, failure);
        }
        throw;
    }
}

// At once and beside the caller, or, where the system has no further thread to give, when it is asked for.
std::future<LoadedTable> startLoading(const FileChoice& file) {
    const auto load = [&file] { return loadOneOfTwo(file); };
    try {
        return std::async(std::launch::async, load);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, load);
    }
}

SheetFailure noSuchSheet(const std::string& path, std::string_view choice, const std::vector<std::string>& names) {
    return SheetFailure(quotedPath(path) + " has no sheet “" + std::string(choice) + "”. It has " + quotedList(names) +
                        ".");
}

std::string nameOf(const std::vector<XLSX::Sheet>& sheets, std::int64_t index) {
    const bool isThere = index >= 0 && static_cast<std::uint64_t>(index) < sheets.size();
    return isThere ? sheets[static_cast<std::size_t>(index)].name : std::string();
}

void refuseByPath(const std::string& path) {
    DataLoader::refuseByName(fileNameOf(path));
    refuseOtherThanFiles(path);
}

}  // namespace

std::vector<std::string> sheetNames(const std::vector<XLSX::Sheet>& sheets) {
    std::vector<std::string> names;
    names.reserve(sheets.size());
    for (const XLSX::Sheet& sheet : sheets) {
        names.push_back(sheet.name);
    }
    return names;
}

std::int64_t sheetIndex(const std::vector<XLSX::Sheet>& sheets, const std::string& path, std::string_view choice) {
    if (isNumber(choice)) {
        return numberOf(choice) - 1;
    }
    const std::vector<std::string> names = sheetNames(sheets);
    const auto index = indexOfName(names, choice);
    if (!index) {
        throw noSuchSheet(path, choice, names);
    }
    return static_cast<std::int64_t>(*index);
}

LoadedTable loadTable(const FileChoice& file) {
    const std::string name = fileNameOf(file.path);
    DataLoader::refuseByName(name);
    Bytes bytes = readFile(file.path);
    std::optional<std::string> sheet;
    const auto choose = [&](const std::vector<XLSX::Sheet>& sheets) {
        const std::int64_t index = file.sheet ? sheetIndex(sheets, file.path, *file.sheet) : 0;
        sheet = nameOf(sheets, index);
        return index;
    };
    DataTable table = DataLoader::load(std::move(bytes), name, choose, file.headerRow);
    return {std::move(table), std::move(sheet)};
}

TablePair loadPair(const PairChoice& files) {
    refuseByPath(files.before.path);
    std::future<LoadedTable> after = startLoading(files.after);
    LoadedTable before = loadOneOfTwo(files.before);
    return {std::move(before), after.get()};
}

}  // namespace corvale::Cli
