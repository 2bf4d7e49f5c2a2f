#pragma once

#include <QUrl>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "tests/support/ScratchFolder.h"

namespace corvale::TestSupport {

// The files that the monkey opens, and that change while it does. Any name may hold anything, or nothing.
class Pantry {
public:
    // The source of chance outlives the pantry.
    explicit Pantry(std::mt19937& random);

    // A file that may be broken, gone, or a folder.
    QUrl anyFile();
    // Where a report may be wanted: a good place, one where none can be, or the place of a file that is compared.
    QUrl anyTarget();
    // Puts something else in the place of a file, or of a part of it. Says what.
    std::string change();

    const ScratchFolder& folder() const { return m_folder; }

private:
    std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    const std::string& anyContent();
    void put(const std::string& name);

    std::mt19937& m_random;
    ScratchFolder m_folder;
    std::vector<std::string> m_contents;
};

}  // namespace corvale::TestSupport
