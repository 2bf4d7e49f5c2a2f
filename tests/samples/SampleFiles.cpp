#include "tests/samples/SampleFiles.h"

#include <algorithm>
#include <cctype>
#include <chrono>

#include "tests/support/TestFiles.h"

namespace corvale::SampleFiles {

namespace {

namespace fs = std::filesystem;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// A sanitizer reserves terabytes of addresses, so it counts what is resident itself.
constexpr const char* limitedCall = "exec \"$0\" \"$@\"";
constexpr std::chrono::seconds timeLimit{120};
#else
constexpr const char* limitedCall = "ulimit -v 2097152 && exec \"$0\" \"$@\"";
constexpr std::chrono::seconds timeLimit{30};
#endif

// The two messages whole, since a file may be named after memory.
bool tellsLackOfMemory(std::string_view error) {
    return error == "corvale-cli: This computer doesn’t have enough memory for these files.\n" ||
           error.ends_with("” is too large for this computer’s memory.\n");
}

bool isOneLine(std::string_view text) { return !text.empty() && text.find('\n') == text.size() - 1; }

}  // namespace

std::vector<std::string> folders(const std::string& part) {
    const auto samples = TestFiles::samples();
    if (!samples) {
        return {""};
    }
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(*samples / part)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<fs::path> files(const fs::path& path) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(TestFiles::samples().value() / path)) {
        if (entry.is_regular_file()) {
            found.push_back(entry.path());
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string testName(const std::string& folder) {
    std::string name = folder.empty() ? "NoSamples" : folder;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

TestSupport::ProcessResult runBounded(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"-c", limitedCall, TestFiles::program("corvale-cli").string()});
    TestSupport::ProcessSettings settings;
    settings.folder = TestFiles::samples().value();
    settings.limit = timeLimit;
    settings.environment = {{"ASAN_OPTIONS", "hard_rss_limit_mb=2048"}, {"TSAN_OPTIONS", "hard_rss_limit_mb=4096"}};
    return TestSupport::runProcess("/bin/sh", std::move(arguments), std::move(settings));
}

std::string misbehaviour(const TestSupport::ProcessResult& result) {
    if (result.wasKilled) {
        return "it took too long";
    }
    if (result.status < 0 || result.status > 2) {
        return "it ended by signal " + std::to_string(result.signal) + " or with status " +
               std::to_string(result.status) + ": " + result.error;
    }
    if (result.status != 2) {
        return result.error.empty() ? "" : "it succeeded and yet complained: " + result.error;
    }
    if (!result.output.empty() || !isOneLine(result.error) || !result.error.starts_with("corvale-cli: ")) {
        return "it did not fail with one line: " + result.error;
    }
    return tellsLackOfMemory(result.error) ? "it took too much memory" : "";
}

}  // namespace corvale::SampleFiles
