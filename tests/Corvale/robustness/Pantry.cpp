#include "tests/Corvale/robustness/Pantry.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "tests/support/Workbooks.h"

namespace corvale::TestSupport {

namespace {

namespace Files = std::filesystem;

constexpr std::array<const char*, 10> names = {"a.csv",
                                               "b.csv",
                                               "c.tsv",
                                               "Stock & more – “new”.csv",
                                               "book.xlsx",
                                               "new.xlsx",
                                               "old.xls",
                                               "old.numbers",
                                               "nothing",
                                               "none.csv"};

std::string row(const std::vector<std::string>& texts) {
    std::string xml = "<row>";
    for (const std::string& text : texts) {
        xml += "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
    }
    return xml + "</row>";
}

std::string workbook(const std::vector<std::pair<std::string, std::string>>& sheets) {
    Workbooks::Parts parts;
    std::string list;
    int number = 0;
    for (const auto& [name, rows] : sheets) {
        const std::string id = std::to_string(++number);
        list += "<sheet name=\"" + name + "\" sheetId=\"" + id + "\"/>";
        parts["xl/worksheets/sheet" + id + ".xml"] = Workbooks::worksheet(rows);
    }
    parts["xl/workbook.xml"] = "<workbook><sheets>" + list + "</sheets></workbook>";
    return Workbooks::package(parts);
}

// Reading and comparing it takes a while, so that something can come in between.
std::string longList(int step) {
    std::string csv = "ID,Name,Price,Note\n";
    for (int line = 0; line < 10'000; line += step) {
        csv += std::to_string(line) + ",item " + std::to_string(line % 7) + "," + std::to_string(line % (step + 9)) +
               ".50,\"a “note”,\nof two lines\"\n";
    }
    return csv;
}

std::string wideList(int shift) {
    std::string csv = "ID";
    for (int column = 0; column < 150; ++column) {
        csv += ",Column " + std::to_string(column + shift);
    }
    for (int line = 0; line < 20; ++line) {
        csv += "\n" + std::to_string(line);
        for (int column = 0; column < 150; ++column) {
            csv += "," + std::to_string(column * (line + shift) % 17);
        }
    }
    return csv;
}

// Two ends of what a cell may be.
std::string hugeLine(char last) {
    return "ID,Text\n1," + std::string(3'000'000, 'x') + last + "\n2," + std::string(70'000, ' ') + last + "\n";
}

// All behind the quote is one value.
std::string lostQuote(int step) { return "ID,Name,Price,Note\n7,\"Pen,2,a\n" + longList(step); }

std::string oddTexts() {
    return "ID,Name,Note\n1,\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7,Zoë\n"
           "2,שלום עולם,مرحبا\n3,a\tb\x01\x02\x7F,e\u0301\u0301\u0301\u0301\n4,&amp; <b>bold</b> %1 %2 %n,&File\n"
           "5,\u202Eabc\u202C,\uFEFF\u200B\n6,\"line\nline\r\nline\",\"\"\"\"\n";
}

std::vector<std::string> contents() {
    return {"ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n",
            "id,NAME,Price\n1,Pen,2.00\n2,cup,4\n4,Ink,1\n",
            "Price;Name;Colour\n2,5;Pen;red\n3;Cup ;blue\n",
            "Stock list,,\n,,\nSKU,Name,Price\nA-1,Pen,2\nA-2,Cup,3\nA-2,Cup,9\n,x,1\n,y,2\n",
            "ID\n",
            "",
            longList(1),
            longList(2),
            wideList(0),
            wideList(3),
            hugeLine('y'),
            hugeLine('z'),
            lostQuote(1),
            lostQuote(2),
            oddTexts(),
            workbook({{"Stock", row({"ID", "Name"}) + row({"1", "Pen"}) + row({"2", "Cup"})},
                      {"Old &amp; new", row({"ID", "Name"}) + row({"2", "Cap"}) + row({"3", "Hat"})}}),
            workbook({{"Empty", ""}, {"Stock", row({"ID", "Price"}) + row({"1", "2"})}}),
            workbook({{"Stock", row({"ID", "Name"}) + row({"1", "Pen"})}}).substr(0, 200),
            std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)};
}

}  // namespace

Pantry::Pantry(std::mt19937& random) : m_random(random), m_contents(contents()) {
    for (const char* const name : names) {
        put(name);
    }
    Files::create_directory(m_folder.at("folder.csv"));
    Files::create_directory(m_folder.at("reports"));
}

const std::string& Pantry::anyContent() { return m_contents[below(m_contents.size())]; }

void Pantry::put(const std::string& name) { m_folder.write(name, anyContent()); }

QUrl Pantry::anyFile() {
    static constexpr std::array<const char*, 3> odd = {"folder.csv", "missing.csv", "a.csv/b.csv"};
    const bool isOdd = below(8) == 0;
    const std::string name = isOdd ? odd[below(odd.size())] : names[below(names.size())];
    return QUrl::fromLocalFile(QString::fromStdString(m_folder.at(name)));
}

QUrl Pantry::anyTarget() {
    static constexpr std::array<const char*, 6> targets = {
        "reports/r.html", "reports/r.xlsx", "reports/Größe.html", "nowhere/r.xlsx", "folder.csv", "a.csv"};
    return below(8) == 0 ? QUrl()
                         : QUrl::fromLocalFile(QString::fromStdString(m_folder.at(targets[below(targets.size())])));
}

std::string Pantry::change() {
    const std::string name = names[below(names.size())];
    const std::string path = m_folder.at(name);
    std::error_code none;
    switch (below(5)) {
        case 0:
            Files::remove(path, none);
            return "removed " + name;
        case 1:
            Files::resize_file(path, Files::file_size(path, none) / 2, none);
            return "cut " + name;
        case 2:
            std::ofstream(path, std::ios::binary | std::ios::app) << anyContent();
            return "lengthened " + name;
        case 3:
            m_folder.write("other", anyContent());
            Files::rename(m_folder.at("other"), path, none);
            return "replaced " + name;
        default:
            put(name);
            return "wrote " + name;
    }
}

}  // namespace corvale::TestSupport
