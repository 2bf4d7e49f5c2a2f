#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/reports/Reports.h"
#include "CorvaleKit/reports/XLSXWriter.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/Tables.h"
#include "tests/support/TestFiles.h"

// What other programs make of our reports. `./dev` tells which of these programs are missing.
namespace corvale {
namespace {

using Lines = std::vector<std::string>;
using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

Lines lines(const std::string& text) {
    Lines all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        all.push_back(line);
    }
    return all;
}

bool runs(const std::string& program, const std::vector<std::string>& arguments) {
    try {
        return TestSupport::runProcess(program, arguments).status == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

// Debian's own Python has the packages; another one may come first in the path. Empty when none has that one.
std::string pythonWith(const std::string& package) {
    for (const std::string python : {"python3", "/usr/bin/python3"}) {
        if (runs(python, {"-c", "import " + package})) {
            return python;
        }
    }
    return "";
}

// Rows of every status, changes of every kind, and texts that a careless writer turns into something else.
DiffResult comparison() {
    DiffOptions options;
    options.ignoreWhitespace = false;
    const DataTable before = Tables::table(
        "ID,Name,Price,Since,Old\n1,Pen,2.50,2024-01-31,=1+1\n2,Cup,3,2024-02-01,\"<b>\"\"&\"\n3,Hat,5,,\n"
        "4,Ink,1,x,\n",
        "old.csv");
    const DataTable after = Tables::table(
        "ID,Name,Price,Since,New\n1,pen,2.5,2024-02-29,+1\n3,Hat,5,,\n5,Zürich,007,2024-03-01 14:30,@SUM(A1)\n"
        "4,Ink ,2,x,-x\n",
        "new.csv");
    return DiffEngine::compare(before, after, RowMatch::key({"ID"}), options, NumberStyle::dotDecimal);
}

std::string report() { return Reports::excelReport(comparison(), {}, true); }

// A line for every sheet with its pane and filter, then one for every row: the cells' types and values, and in brackets
// what is not plain about them.
constexpr std::string_view describeWorkbook = R"(
import sys, openpyxl
def described(cell):
    value = f'{cell.value:%Y-%m-%d %H:%M}' if cell.data_type == 'd' else cell.value
    fill = cell.fill.fgColor.rgb if cell.fill.fill_type else ''
    color = cell.font.color.rgb if cell.font.color else ''
    code = cell.number_format.replace('General', '')
    style = ' '.join(filter(None, [fill, 'bold' if cell.font.b else '', color, code]))
    return f'{cell.coordinate} {cell.data_type} {value}' + (f' [{style}]' if style else '')
for sheet in openpyxl.load_workbook(sys.argv[1]):
    print(f'{sheet.title}: frozen at {sheet.freeze_panes}, filter {sheet.auto_filter.ref}')
    for row in sheet.iter_rows():
        print(' | '.join(described(cell) for cell in row if cell.value is not None or cell.has_style))
)";

// Fails at the first thing that HTML forbids; then prints the names of the elements and attributes, and each table
// cell.
constexpr std::string_view describePage = R"(
import sys, html5lib
parser = html5lib.HTMLParser(tree=html5lib.getTreeBuilder('etree'), strict=True, namespaceHTMLElements=False)
page = parser.parse(open(sys.argv[1], 'rb').read(), transport_encoding='utf-8')
print(*sorted({element.tag for element in page.iter()}))
print(*sorted({name for element in page.iter() for name in element.attrib}))
for row in page.iter('tr'):
    print(' | '.join(''.join(cell.itertext()) for cell in row))
)";

class OtherReaders : public testing::Test {
protected:
    Lines readByOpenpyxl(const std::string& workbook) const {
        const std::string path = m_folder.write("report.xlsx", workbook);
        const ProcessResult result =
            TestSupport::runProcess(pythonWith("openpyxl"), {"-c", std::string(describeWorkbook), path});
        EXPECT_EQ(result.status, 0) << result.error;
        return lines(result.output);
    }

    // Converts report.xlsx as LibreOffice's filter has it; what it makes lies beside it.
    void convert(const std::string& workbook, const std::string& filter) const {
        m_folder.write("report.xlsx", workbook);
        const std::string profile = "-env:UserInstallation=file://" + m_folder.at("profile");
        ProcessSettings settings;
        settings.folder = m_folder.path();
        settings.environment = {{"HOME", m_folder.path().string()}, {"LC_ALL", "C.UTF-8"}};
        const ProcessResult result = TestSupport::runProcess(
            "soffice", {profile, "--headless", "--convert-to", filter, "report.xlsx"}, settings);
        EXPECT_EQ(result.status, 0) << result.error;
    }

    ScratchFolder m_folder;
};

TEST_F(OtherReaders, OpenpyxlReadsTheReport) {
    if (pythonWith("openpyxl").empty()) {
        GTEST_SKIP() << "python3-openpyxl is missing";
    }
    EXPECT_EQ(readByOpenpyxl(report()),
              (Lines{
                  "Summary: frozen at None, filter None",
                  "A1 s Corvale report [bold]",
                  "A2 s Before file | B2 s old.csv",
                  "A3 s After file | B3 s new.csv",
                  "A4 s Rows matched by | B4 s ID",
                  "A5 s Ignored | B5 s column order",
                  "",
                  "A7 s Rows added [FFD8F0D2] | B7 n 1",
                  "A8 s Rows removed [FFF8D7D5] | B8 n 1",
                  "A9 s Rows changed [FFFFE9A8 bold] | B9 n 2",
                  "A10 s Rows unchanged | B10 n 1",
                  "A11 s Cells changed | B11 n 5",
                  "A12 s Cells that differ only in number format, case or spacing [FFDCE9F7] | B12 n 3",
                  "A13 s Columns added | B13 n 1",
                  "A14 s Columns removed | B14 n 1",
                  "Changes: frozen at A2, filter A1:J6",
                  "A1 s Status [FFE7E6E6 bold] | B1 s Key [FFE7E6E6 bold] | C1 s Row (before) [FFE7E6E6 bold] | "
                  "D1 s Row (after) [FFE7E6E6 bold] | E1 s ID [FFE7E6E6 bold] | F1 s Name [FFE7E6E6 bold] | "
                  "G1 s Price [FFE7E6E6 bold] | H1 s Since [FFE7E6E6 bold] | I1 s − Old [FFE7E6E6 bold] | "
                  "J1 s + New [FFE7E6E6 bold]",
                  "A2 s Changed [FFFFE9A8 bold] | B2 s 1 | C2 n 2 | D2 n 2 | E2 n 1 | F2 s pen [FFDCE9F7] | "
                  "G2 n 2.5 [FFDCE9F7] | H2 d 2024-02-29 00:00 [FFFFE9A8 bold yyyy-mm-dd] | I2 s =1+1 | J2 s +1",
                  "A3 s Removed [FFF8D7D5] | B3 s 2 [FFF8D7D5] | C3 n 3 [FFF8D7D5] | D3 n None [FFF8D7D5] | "
                  "E3 n 2 [FFF8D7D5] | F3 s Cup [FFF8D7D5] | G3 n 3 [FFF8D7D5] | "
                  "H3 d 2024-02-01 00:00 [FFF8D7D5 yyyy-mm-dd] | I3 s <b>\"& [FFF8D7D5] | J3 n None [FFF8D7D5]",
                  "A4 s Unchanged | B4 s 3 | C4 n 4 | D4 n 3 | E4 n 3 | F4 s Hat | G4 n 5",
                  "A5 s Added [FFD8F0D2] | B5 s 5 [FFD8F0D2] | C5 n None [FFD8F0D2] | D5 n 4 [FFD8F0D2] | "
                  "E5 n 5 [FFD8F0D2] | F5 s Zürich [FFD8F0D2] | G5 s 007 [FFD8F0D2] | "
                  "H5 d 2024-03-01 14:30 [FFD8F0D2 yyyy-mm-dd hh:mm] | I5 n None [FFD8F0D2] | "
                  "J5 s @SUM(A1) [FFD8F0D2]",
                  "A6 s Changed [FFFFE9A8 bold] | B6 s 4 | C6 n 5 | D6 n 5 | E6 n 4 | F6 s Ink  [FFDCE9F7] | "
                  "G6 n 2 [FFFFE9A8 bold] | H6 s x | J6 s -x",
                  "Cell changes: frozen at A2, filter A1:E6",
                  "A1 s Key [FFE7E6E6 bold] | B1 s Column [FFE7E6E6 bold] | C1 s Before [FFE7E6E6 bold] | "
                  "D1 s After [FFE7E6E6 bold] | E1 s Difference [FFE7E6E6 bold]",
                  "A2 s 1 | B2 s Name | C2 s Pen | D2 s pen | E2 s Letter case only [FFDCE9F7]",
                  "A3 s 1 | B3 s Price | C3 n 2.5 | D3 n 2.5 | E3 s Number format only [FFDCE9F7]",
                  "A4 s 1 | B4 s Since | C4 d 2024-01-31 00:00 [yyyy-mm-dd] | D4 d 2024-02-29 00:00 [yyyy-mm-dd] | "
                  "E4 s Value",
                  "A5 s 4 | B5 s Name | C5 s Ink | D5 s Ink  | E5 s Spacing only [FFDCE9F7]",
                  "A6 s 4 | B6 s Price | C6 n 1 | D6 n 2 | E6 s Value",
              }));
}

TEST_F(OtherReaders, OpenpyxlReadsEveryStyle) {
    if (pythonWith("openpyxl").empty()) {
        GTEST_SKIP() << "python3-openpyxl is missing";
    }
    using Style = XLSXWriter::Style;
    const std::vector<std::pair<Style, std::string>> styles = {{Style::plain, ""},
                                                               {Style::header, "FFE7E6E6 bold"},
                                                               {Style::added, "FFD8F0D2"},
                                                               {Style::removed, "FFF8D7D5"},
                                                               {Style::changed, "FFFFE9A8 bold"},
                                                               {Style::bold, "bold"},
                                                               {Style::typeOnly, "FFDCE9F7"},
                                                               {Style::muted, "FF7F7F7F"}};
    XLSXWriter::Sheet sheet{"Styles"};
    Lines expected{"Styles: frozen at None, filter None"};
    for (const auto& [style, look] : styles) {
        sheet.rows.push_back(
            {{"a", style}, {"-0.5", style, true}, {"2024-02-29", style, true}, {"2024-03-01 14:30", style, true}});
        const std::string row = std::to_string(sheet.rows.size());
        const std::string suffix = look.empty() ? "" : " [" + look + "]";
        const std::string dateStart = look.empty() ? " [" : " [" + look + " ";
        expected.push_back("A" + row + " s a" + suffix + " | B" + row + " n -0.5" + suffix + " | C" + row +
                           " d 2024-02-29 00:00" + dateStart + "yyyy-mm-dd] | D" + row + " d 2024-03-01 14:30" +
                           dateStart + "yyyy-mm-dd hh:mm]");
    }
    EXPECT_EQ(readByOpenpyxl(XLSXWriter{{sheet}}.data()), expected);
}

TEST_F(OtherReaders, LibreOfficeReadsTheReport) {
    if (!runs("soffice", {"--version"})) {
        GTEST_SKIP() << "LibreOffice is missing";
    }
    // Every sheet, in UTF-8, between commas, texts (and only those) in apostrophes, cells as shown.
    convert(report(), "csv:Text - txt - csv (StarCalc):44,39,76,1,,0,true,false,true,false,false,-1");
    EXPECT_EQ(lines(TestFiles::read(m_folder.at("report-Summary.csv"))),
              (Lines{"'Corvale report',",
                     "'Before file','old.csv'",
                     "'After file','new.csv'",
                     "'Rows matched by','ID'",
                     "'Ignored','column order'",
                     ",",
                     "'Rows added',1",
                     "'Rows removed',1",
                     "'Rows changed',2",
                     "'Rows unchanged',1",
                     "'Cells changed',5",
                     "'Cells that differ only in number format, case or spacing',3",
                     "'Columns added',1",
                     "'Columns removed',1"}));
    EXPECT_EQ(lines(TestFiles::read(m_folder.at("report-Changes.csv"))),
              (Lines{"'Status','Key','Row (before)','Row (after)','ID','Name','Price','Since','− Old','+ New'",
                     "'Changed','1',2,2,1,'pen',2.5,2024-02-29,'=1+1','+1'",
                     "'Removed','2',3,,2,'Cup',3,2024-02-01,'<b>\"&',",
                     "'Unchanged','3',4,3,3,'Hat',5,,,",
                     "'Added','5',,4,5,'Zürich','007',2024-03-01 14:30,,'@SUM(A1)'",
                     "'Changed','4',5,5,4,'Ink ',2,'x',,'-x'"}));
    EXPECT_EQ(lines(TestFiles::read(m_folder.at("report-Cell changes.csv"))),
              (Lines{"'Key','Column','Before','After','Difference'",
                     "'1','Name','Pen','pen','Letter case only'",
                     "'1','Price',2.5,2.5,'Number format only'",
                     "'1','Since',2024-01-31,2024-02-29,'Value'",
                     "'4','Name','Ink','Ink ','Spacing only'",
                     "'4','Price',1,2,'Value'"}));
}

TEST_F(OtherReaders, LibreOfficePrintsTheReport) {
    if (!runs("soffice", {"--version"}) || !runs("pdftotext", {"-v"})) {
        GTEST_SKIP() << "LibreOffice or pdftotext is missing";
    }
    convert(report(), "pdf");
    const ProcessResult text = TestSupport::runProcess("pdftotext", {"-layout", m_folder.at("report.pdf"), "-"});
    EXPECT_EQ(text.status, 0) << text.error;
    for (const std::string shown : {"Corvale report\n",
                                    "old.csv\n",
                                    "Row (after)",
                                    "− Old",
                                    "2024-02-01",
                                    "=1+1",
                                    "@SUM(A1)",
                                    "<b>\"&",
                                    "Zürich",
                                    "Letter case only\n"}) {
        EXPECT_NE(text.output.find(shown), std::string::npos) << shown << "\n\n" << text.output;
    }
}

TEST_F(OtherReaders, AStrictParserReadsThePage) {
    const std::string python = pythonWith("html5lib");
    if (python.empty()) {
        GTEST_SKIP() << "python3-html5lib is missing";
    }
    const std::string path = m_folder.write("report.html", Reports::htmlReport(comparison(), {}, "en"));
    const ProcessResult result = TestSupport::runProcess(python, {"-c", std::string(describePage), path});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(lines(result.output),
              (Lines{"b body del div h1 head html ins meta p style table tbody td th thead title tr",
                     "charset class content lang name title",
                     "Status | Key | ID | Name | Price | Since | − Old | + New",
                     "Changed | 1 | 1 | Pen pen | 2.50 2.5 | 2024-01-31 2024-02-29 | =1+1 | +1",
                     "Removed | 2 | 2 | Cup | 3 | 2024-02-01 | <b>\"& | ",
                     "Added | 5 | 5 | Zürich | 007 | 2024-03-01 14:30 |  | @SUM(A1)",
                     "Changed | 4 | 4 | Ink Ink  | 1 2 | x |  | -x"}));
}

}  // namespace
}  // namespace corvale
