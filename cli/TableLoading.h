#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataTable.h"
#include "CorvaleKit/loading/XLSX.h"
#include "cli/Arguments.h"

namespace corvale::Cli {

// A sheet that the workbook does not have by the name given.
class SheetFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

struct LoadedTable {
    DataTable table;
    std::optional<std::string> sheet;  // the name of the workbook's sheet that was read; none for a text file
};

// Throws FileFailure, SheetFailure or a failure of the loader. Those about what is inside a workbook do not name it.
LoadedTable loadTable(const FileChoice& file);

struct TablePair {
    LoadedTable before;
    LoadedTable after;
};

// Reads both files at the same time where it can. When neither can be loaded, it is Before's failure that is thrown;
// what its path alone gives away, before anything of After is read. The text of every failure names its file.
TablePair loadPair(const PairChoice& files);

// In workbook order.
std::vector<std::string> sheetNames(const std::vector<XLSX::Sheet>& sheets);

// The 0-based index of the sheet that `choice` names: a number from 1 when it is all digits, which need not exist, else
// a name, equal as it stands or else ignoring letter case. Throws a SheetFailure about `path`, or, for a number that no
// workbook can have, an XLSX::Failure.
std::int64_t sheetIndex(const std::vector<XLSX::Sheet>& sheets, const std::string& path, std::string_view choice);

}  // namespace corvale::Cli
