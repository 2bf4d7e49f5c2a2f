#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/SheetReader.h"
#include "CorvaleKit/loading/Workbook.h"
#include "CorvaleKit/loading/XMLEvents.h"
#include "CorvaleKit/loading/ZipReader.h"
#include "tests/support/ZipBuilder.h"

namespace corvale::benchmarks {

namespace {

// A worksheet of ten columns: texts from the shared strings, integers, decimals and dates.
std::string sheetXml(std::size_t rows) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet><sheetData>";
    for (std::size_t row = 1; row <= rows; ++row) {
        const std::string number = std::to_string(row);
        xml += "<row r=\"" + number + "\">";
        for (char column = 'A'; column <= 'J'; ++column) {
            xml += "<c r=\"" + std::string(1, column) + number + "\"";
            switch (column) {
                case 'F':
                    xml += "><v>" + std::to_string(row % 999) + ".25</v></c>";
                    break;
                case 'G':
                    xml += "><v>" + std::to_string(row % 97) + "</v></c>";
                    break;
                case 'H':
                    xml += " s=\"1\"><v>" + std::to_string(45000 + row % 366) + "</v></c>";
                    break;
                default:
                    xml += " t=\"s\"><v>" + std::to_string((row * 7 + static_cast<std::size_t>(column)) % 1000) +
                           "</v></c>";
            }
        }
        xml += "</row>";
    }
    return xml + "</sheetData></worksheet>";
}

XLSX::Workbook workbook() {
    XLSX::Workbook workbook;
    for (int i = 0; i < 1000; ++i) {
        workbook.strings.texts.append("shared text " + std::to_string(i));
        workbook.strings.ends.push_back(workbook.strings.texts.size());
    }
    workbook.formats = {{}, {XLSX::NumberFormat::Kind::date, 0}};
    return workbook;
}

void readSheet(benchmark::State& state, XMLEvents::Parser parse) {
    const std::string xml = sheetXml(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto run : state) {
        state.PauseTiming();
        Bytes part(xml);
        XLSX::Workbook around = workbook();
        state.ResumeTiming();
        benchmark::DoNotOptimize(XLSX::sheetGrid(std::move(part), std::move(around), parse));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(xml.size()) * state.iterations());
}

void parseGenerally(std::string_view part, XMLEvents::Handler& handler) { XMLEvents::parseGenerally(part, handler); }

void inflate(benchmark::State& state) {
    const std::string xml = sheetXml(static_cast<std::size_t>(state.range(0)));
    const std::string archive = ZipBuilder::archive({{.path = "sheet1.xml", .content = xml}});
    const ZipReader::Entry entry = ZipReader::entries(archive).front();
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(ZipReader::extract(entry, archive));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(xml.size()) * state.iterations());
}

BENCHMARK(inflate)->Name("inflate/rows")->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readSheet, plain, &XMLEvents::parse)
    ->Name("read sheet/rows")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readSheet, generally, &parseGenerally)
    ->Name("read sheet through expat alone/rows")
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
