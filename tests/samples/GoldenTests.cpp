#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/samples/GoldenCases.h"
#include "tests/samples/SampleFiles.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace fs = std::filesystem;

// FNV-1a, 64 bits: stands for what a golden file leaves out.
std::string digest(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    std::string hex;
    for (unsigned shift = 64; shift > 0; shift -= 4) {
        hex += "0123456789abcdef"[hash >> (shift - 4) & 0xFU];
    }
    return hex;
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// Every run takes another time.
std::string withoutDuration(std::string output) {
    const std::size_t start = output.rfind("\"duration\":");
    if (start != std::string::npos) {
        output.replace(start, output.find('}', start) - start, "\"duration\":…");
    }
    return output;
}

std::string shortenedLine(const std::string& line) {
    constexpr std::size_t longest = 400;
    if (line.size() <= longest) {
        return line;
    }
    std::size_t kept = longest;
    while ((static_cast<unsigned char>(line[kept]) & 0xC0U) == 0x80U) {
        --kept;
    }
    return line.substr(0, kept) + " … " + std::to_string(line.size()) + " bytes, " + digest(line);
}

// The whole of a small output; of a large one the beginning, the end and a digest of all of it.
std::string golden(const std::string& output) {
    constexpr std::size_t first = 30;
    constexpr std::size_t last = 12;
    const auto lines = linesOf(output);
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines.size() > first + last && i == first) {
            text += "… " + std::to_string(lines.size()) + " lines, " + digest(output) + "\n";
            i = lines.size() - last;
        }
        text += shortenedLine(lines[i]) + "\n";
    }
    return text;
}

class Golden : public testing::TestWithParam<GoldenCase> {};

TEST_P(Golden, TheOutputIsTheOneThatWasReviewed) {
    if (!TestFiles::samples()) {
        GTEST_SKIP() << "the CMake option CORVALE_SAMPLES names no folder of sample files";
    }
    const auto run = SampleFiles::runBounded(GetParam().arguments);
    ASSERT_EQ(SampleFiles::misbehaviour(run), "");
    const std::string actual = golden(run.status == 2 ? run.error : withoutDuration(run.output));
    const fs::path path = fs::path(CORVALE_GOLDEN) / (GetParam().name + ".txt");
    const std::string expected = fs::exists(path) ? TestFiles::read(path) : "";
    EXPECT_EQ(run.status, GetParam().status) << run.error;
    if (actual != expected) {
        const fs::path folder = fs::temp_directory_path() / "corvale-golden";
        fs::create_directories(folder);
        std::ofstream(folder / path.filename(), std::ios::binary) << actual;
        EXPECT_EQ(actual, expected)
            << "If the new output is right, it is to be reviewed against the source and copied from "
            << folder / path.filename() << " to " << path;
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, Golden, testing::ValuesIn(goldenCases()),
                         [](const auto& test) { return SampleFiles::testName(test.param.name); });

}  // namespace
}  // namespace corvale
