#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <utility>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/engine/StoredForms.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/reports/Reports.h"
#include "CorvaleKit/reports/SampleData.h"
#include "tests/memory/FailingAllocations.h"
#include "tests/support/Workbooks.h"

namespace corvale {
namespace {

using TestSupport::FailingAllocations;

// Does the work again and again, with memory refused at its first allocation, at its second and so on until there is
// none left. It either throws std::bad_alloc or comes to the right result; that nothing is lost or freed twice is for
// the address sanitizer to see. `holds` says whether a result is right.
void refuseEverywhere(const std::function<bool()>& holds) {
    for (const auto mode : {FailingAllocations::Mode::once, FailingAllocations::Mode::fromThenOn}) {
        std::int64_t place = 1;
        for (bool hasStruck = true; hasStruck; ++place) {
            ASSERT_LT(place, 1'000'000);
            const FailingAllocations failing(place, mode);
            try {
                ASSERT_TRUE(holds()) << "where allocation " << place << " was refused";
            } catch (const std::bad_alloc&) {
                ASSERT_TRUE(failing.haveStruck());
            }
            hasStruck = failing.haveStruck();
        }
        EXPECT_GT(place, 3) << "hardly anything was refused";
    }
}

// Quoted cells, repeated and empty keys and names, and enough rows for tables to grow.
std::string csv(int step) {
    std::string text = "ID,Name,Price,Price,,\"two\nlines\"\n";
    for (int row = 0; row < 60; ++row) {
        text += std::to_string(row / step) + ",\"it’s \"\"" + std::to_string(row % 9) + "\"\"\"," +
                std::to_string(row * step) + ".50,x, y ,a longer text than fits into sixteen bytes\n";
    }
    return text + ",,,,\n,no key,1\n";
}

DataTable table(const std::string& bytes, const std::string& name) { return DataLoader::load(Bytes(bytes), name); }

std::string workbook() {
    std::string rows =
        "<row><c t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c><c t=\"inlineStr\"><is><t>Day</t></is></c></row>";
    for (int row = 0; row < 40; ++row) {
        const std::string number = std::to_string(row);
        rows += "<row><c><v>" + number + "</v></c><c t=\"s\"><v>" + std::to_string(row % 3) + "</v></c><c s=\"" +
                std::to_string(row % 3) + "\"><v>" + number + ".5</v></c></row>";
    }
    auto parts = Workbooks::oneSheet(rows);
    parts["xl/sharedStrings.xml"] =
        Workbooks::sharedStrings({"<t>ID</t>", "<t>Name</t>", "<r><t>rich </t></r><r><t>text of some length</t></r>"});
    parts["xl/styles.xml"] = Workbooks::styles({{.numFmtId = 14}, {.numFmtId = 170, .code = "0000"}, {.numFmtId = 2}});
    return Workbooks::package(parts);
}

TEST(OutOfMemory, ATextFileIsReadOrRefused) {
    const std::string bytes = csv(2);
    const DataTable expected = table(bytes, "a.csv");
    refuseEverywhere([&] { return table(bytes, "a.csv") == expected; });
}

TEST(OutOfMemory, AWorkbookIsReadOrRefused) {
    const std::string bytes = workbook();
    const DataTable expected = table(bytes, "a.xlsx");
    ASSERT_EQ(expected.rows().size(), 40U);
    refuseEverywhere([&] { return table(bytes, "a.xlsx") == expected; });
}

TEST(OutOfMemory, AFileInUtf16IsReadOrRefused) {
    std::string bytes = "\xFF\xFE";
    for (const char c : std::string("ID,Name\n1,Pen\n2,Cup\n")) {
        bytes += c;
        bytes += '\0';
    }
    const DataTable expected = table(bytes, "a.csv");
    ASSERT_EQ(expected.rows().size(), 2U);
    refuseEverywhere([&] { return table(bytes, "a.csv") == expected; });
}

class OutOfMemoryPair : public testing::Test {
protected:
    static bool isSame(const DiffResult& a, DiffResult b) {
        b.duration = a.duration;
        return a == b;
    }

    DiffResult compared(const RowMatch& match, const DiffOptions& options) const {
        return DiffEngine::compare(m_before, m_after, match, options, NumberStyle::dotDecimal);
    }

    void refuseComparing(const RowMatch& match, const DiffOptions& options) const {
        const DiffResult expected = compared(match, options);
        refuseEverywhere([&] { return isSame(expected, compared(match, options)); });
    }

    DataTable m_before = table(csv(1), "a.csv");
    DataTable m_after = table(csv(2), "b.csv");
};

TEST_F(OutOfMemoryPair, IsComparedByKeyOrNot) { refuseComparing(RowMatch::key({"ID"}), {}); }

TEST_F(OutOfMemoryPair, IsComparedByTwoKeysOrNot) { refuseComparing(RowMatch::key({"ID", "Name"}), {}); }

TEST_F(OutOfMemoryPair, IsComparedInRowOrderOrNot) { refuseComparing(RowMatch::rowOrder(), {}); }

TEST_F(OutOfMemoryPair, IsComparedWithEverythingIgnoredOrNot) {
    DiffOptions options;
    options.ignoreCase = options.ignoreWhitespace = options.ignoreNumberFormat = true;
    options.ignoreColumnOrder = false;
    options.ignoredColumns = {"Name"};
    refuseComparing(RowMatch::key({"ID"}), options);
    refuseComparing(RowMatch::rowOrder(), options);
}

TEST_F(OutOfMemoryPair, GetsItsKeyOrNone) {
    const auto expected = KeySuggester::candidates(m_before, m_after);
    refuseEverywhere([&] { return KeySuggester::candidates(m_before, m_after) == expected; });
}

TEST_F(OutOfMemoryPair, IsFilteredOrNot) {
    const DiffResult result = compared(RowMatch::key({"ID"}), {});
    DiffFilter filter;
    filter.show = DiffFilter::Show::all;
    filter.search = "it’s";
    const auto expected = filter.apply(result);
    refuseEverywhere([&] { return filter.apply(result) == expected; });
}

TEST_F(OutOfMemoryPair, GetsItsReportsOrNone) {
    const DiffResult result = compared(RowMatch::key({"ID"}), {});
    const ReportStrings strings;
    const std::string page = Reports::htmlReport(result, strings, "en");
    refuseEverywhere([&] { return Reports::htmlReport(result, strings, "en") == page; });
    const std::string book = Reports::excelReport(result, strings, true);
    refuseEverywhere([&] { return Reports::excelReport(result, strings, true) == book; });
}

// Reading them is another matter: what nlohmann's parser made takes memory to destroy. They are a few hundred bytes,
// read once when the program starts.
TEST(OutOfMemory, OptionsAreStoredOrNot) {
    DiffOptions options;
    options.ignoreCase = true;
    options.ignoredColumns = {"Name", "a column with a name of some length"};
    const std::string stored = StoredForms::encoded(options);
    refuseEverywhere([&] { return StoredForms::encoded(options) == stored; });
}

TEST(OutOfMemory, TheSampleIsMadeOrNot) {
    const DataTable expected = SampleData::stock().after;
    refuseEverywhere([&] { return SampleData::stock().after == expected; });
}

}  // namespace
}  // namespace corvale
