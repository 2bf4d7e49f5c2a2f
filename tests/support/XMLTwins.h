#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/CellRow.h"
#include "CorvaleKit/loading/SharedStrings.h"
#include "CorvaleKit/loading/SheetReader.h"
#include "CorvaleKit/loading/XMLEvents.h"

// What becomes of a part when it is read through one parser or the other, written down so that the two can be compared:
// no two outcomes have the same text. The failure, where there is one, is the end of it.
namespace corvale::XMLTwins {

using XMLEvents::Parser;

inline void parseGenerally(std::string_view part, XMLEvents::Handler& handler) {
    XMLEvents::parseGenerally(part, handler);
}

inline constexpr std::string_view mark{"\x1F", 1};  // which no text of an XML part can hold

inline std::string failureOf(const UserFailure& failure) {
    return std::string(mark) + "failure" + std::string(mark) + failure.message();
}

// Writes down every event. Which texts it wants depends on a seed and the element's name.
class Recorder : public XMLEvents::Handler {
public:
    explicit Recorder(unsigned seed) : m_seed(seed) {}

    bool onStart(std::string_view name, const XMLEvents::Attributes& attributes) override {
        write("<", name);
        for (const XMLEvents::Attribute attribute : attributes) {
            write(attribute.name(), attribute.value());
        }
        return wants(name);
    }

    void onEnd(std::string_view name, std::string& text) override {
        write(">", name);
        write("", text);
    }

    std::string log;

private:
    // All or none of them for the first seeds.
    bool wants(std::string_view name) const {
        const unsigned letter = name.empty() ? 0 : static_cast<unsigned char>(name.back());
        return m_seed == 0 || (m_seed > 1 && letter % m_seed == 0);
    }

    void write(std::string_view what, std::string_view text) { (log += what).append(mark).append(text).append(mark); }

    unsigned m_seed;
};

inline std::string events(std::string_view part, Parser parse, unsigned seed) {
    Recorder recorder(seed);
    try {
        parse(part, recorder);
    } catch (const UserFailure& failure) {
        recorder.log += failureOf(failure);
    }
    return recorder.log;
}

// A workbook of two shared strings and four kinds of format.
inline XLSX::Workbook workbook() {
    using Kind = XLSX::NumberFormat::Kind;
    XLSX::Workbook workbook;
    for (const std::string_view text : {"zero", "one"}) {
        workbook.strings.texts.append(text);
        workbook.strings.ends.push_back(workbook.strings.texts.size());
    }
    workbook.formats = {{}, {Kind::date, 0}, {Kind::percent, 0}, {Kind::zeroPadded, 5}};
    return workbook;
}

// Every cell after its row's index; of rows without cells, only how many rows there are.
inline std::string sheet(std::string_view part, Parser parse) {
    try {
        const CellGrid grid = XLSX::sheetGrid(Bytes(part), workbook(), parse);
        std::string texts = std::to_string(grid.rowCount());
        for (std::size_t i = 0; i < grid.rowCount(); ++i) {
            for (const std::string_view cell : grid.row(i)) {
                texts.append(mark).append(std::to_string(i)).append(mark).append(cell);
            }
        }
        return texts;
    } catch (const UserFailure& failure) {
        return failureOf(failure);
    }
}

inline std::string strings(std::string_view part, Parser parse) {
    try {
        XLSX::SharedStrings strings = XLSX::sharedStrings(part, XLSX::mostStrings, parse);
        const Bytes texts = strings.texts.finish();
        std::string all;
        std::size_t start = 0;
        for (const std::uint64_t end : strings.ends) {
            all.append(texts.view().substr(start, end - start)).append(mark);
            start = end;
        }
        return all;
    } catch (const UserFailure& failure) {
        return failureOf(failure);
    }
}

// Whether nothing that is read from a part depends on the parser.
inline bool agree(std::string_view part, unsigned seed) {
    return events(part, XMLEvents::parse, seed) == events(part, parseGenerally, seed) &&
           sheet(part, XMLEvents::parse) == sheet(part, parseGenerally) &&
           strings(part, XMLEvents::parse) == strings(part, parseGenerally);
}

}  // namespace corvale::XMLTwins
