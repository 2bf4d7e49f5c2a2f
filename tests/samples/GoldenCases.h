#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace corvale {

// One call of corvale-cli inside the folder of samples whose output is kept in golden/<name>.txt.
struct GoldenCase {
    std::string name;
    int status = 0;
    std::vector<std::string> arguments;

    friend std::ostream& operator<<(std::ostream& stream, const GoldenCase& golden) { return stream << golden.name; }
};

// Between them they use every feature of the readers and the comparison that the samples show.
std::vector<GoldenCase> goldenCases();

}  // namespace corvale
