#include "Corvale/model/FileLoading.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/XLSX.h"

namespace corvale::FileLoading {

namespace {

// Picks a sheet by the names of all; asked about workbooks only.
using SheetByName = std::function<std::int64_t(const std::vector<std::string>& names)>;

// Fills in what follows from name, bytes and choices. The table works in its own copy of the bytes, because quoted
// cells are unfolded in place.
void parse(LoadedFile& file, const SheetByName& choose) {
    file.sheetNames.clear();
    file.sheet = 0;
    const auto chooseSheet = [&file, &choose](const std::vector<XLSX::Sheet>& sheets) {
        for (const XLSX::Sheet& sheet : sheets) {
            file.sheetNames.push_back(sheet.name);
        }
        file.sheet = choose(file.sheetNames);
        return file.sheet;
    };
    file.table = DataLoader::load(Bytes(file.data->view()), file.name, chooseSheet, file.headerRow);
}

// False when the chosen row is not there or blank, so that the loader took another.
bool hasHeaderRow(const LoadedFile& file) { return !file.headerRow || *file.headerRow == file.table.headerRowNumber(); }

void parseAutomatically(LoadedFile& file, const SheetByName& choose) {
    if (file.headerRow) {
        file.headerRow.reset();
        parse(file, choose);
    }
}

std::shared_ptr<const Bytes> bytesOf(Platform& platform, const QUrl& url) {
    return std::make_shared<const Bytes>(platform.readFile(url));
}

// Sheets may have the same name; then the one at the same place is meant, else the first one.
std::optional<std::int64_t> placeOfSameSheet(const LoadedFile& old, const std::vector<std::string>& names) {
    const auto index = static_cast<std::size_t>(old.sheet);
    if (index >= old.sheetNames.size()) {
        return std::nullopt;
    }
    const std::string& name = old.sheetNames[index];
    if (index < names.size() && names[index] == name) {
        return old.sheet;
    }
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? std::nullopt : std::optional<std::int64_t>(found - names.begin());
}

}  // namespace

std::string nameOf(const QUrl& url) { return url.fileName().toStdString(); }

LoadedFile read(Platform& platform, const QUrl& url, const CancelCheck& isCancelled) {
    LoadedFile file;
    file.url = url;
    file.name = nameOf(url);
    file.data = bytesOf(platform, url);
    for (std::int64_t sheet = 0;; ++sheet) {
        stopIfCancelled(isCancelled);
        try {
            parse(file, [sheet](const auto&) { return sheet; });
            return file;
        } catch (const DataLoader::Failure& failure) {
            const bool wasLast = sheet + 1 >= static_cast<std::int64_t>(file.sheetNames.size());
            if (failure.kind() != DataLoader::Failure::Kind::emptySheet || wasLast) {
                throw;
            }
        }
    }
}

LoadedFile readAgain(Platform& platform, const LoadedFile& old, const CancelCheck& isCancelled) {
    LoadedFile file;
    file.url = old.url;
    file.name = old.name;
    file.headerRow = old.headerRow;
    file.data = bytesOf(platform, old.url);
    stopIfCancelled(isCancelled);
    bool isSameSheet = true;
    const SheetByName sameSheet = [&old, &isSameSheet](const std::vector<std::string>& names) {
        const auto found = placeOfSameSheet(old, names);
        isSameSheet = found.has_value();
        return found.value_or(0);
    };
    parse(file, sameSheet);
    if (!isSameSheet || !hasHeaderRow(file)) {
        parseAutomatically(file, sameSheet);
    }
    return file;
}

LoadedFile reparsed(const LoadedFile& old) {
    LoadedFile file;
    file.url = old.url;
    file.name = old.name;
    file.data = old.data;
    file.headerRow = old.headerRow;
    const SheetByName chosenSheet = [&old](const auto&) { return old.sheet; };
    parse(file, chosenSheet);
    if (!hasHeaderRow(file)) {
        parseAutomatically(file, chosenSheet);
    }
    return file;
}

}  // namespace corvale::FileLoading
