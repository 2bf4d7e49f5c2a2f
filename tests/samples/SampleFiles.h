#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/Process.h"

// The folder of sample files and how it is read: each file by a process of its own, so that one which hangs or takes
// all memory fails its test and nothing else.
namespace corvale::SampleFiles {

// Folders inside a part of the samples, such as "csv" or "pairs", sorted. One empty name when the build knows of no
// samples, so that a test over them runs and says that it is skipped.
std::vector<std::string> folders(const std::string& part);

// Every file at or below a path inside the samples, sorted.
std::vector<std::filesystem::path> files(const std::filesystem::path& path);

// A folder's name in the form that GoogleTest takes.
std::string testName(const std::string& folder);

// Runs corvale-cli inside the samples' folder with at most 30 seconds and 2 GiB.
TestSupport::ProcessResult runBounded(std::vector<std::string> arguments);

// Empty when the program ended as it should: with a status from 0 to 2, and with status 2 saying one sentence on
// standard error and nothing on standard output. Else what is wrong.
std::string misbehaviour(const TestSupport::ProcessResult& result);

}  // namespace corvale::SampleFiles
