// make-pair ROWS FOLDER: writes before.csv and after.csv, for whole-process measurements.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "benchmarks/PairMaker.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: make-pair ROWS FOLDER\n";
        return EXIT_FAILURE;
    }
    const auto pair = corvale::benchmarks::makePair({std::stoull(argv[1])});
    const std::filesystem::path folder(argv[2]);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "before.csv", std::ios::binary) << pair.before;
    std::ofstream(folder / "after.csv", std::ios::binary) << pair.after;
    return EXIT_SUCCESS;
}
