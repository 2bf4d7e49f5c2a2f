#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/ModelWatch.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale::TestSupport {

// An .xlsx file of sheets by name, each written as CSV without quotes.
std::string workbook(const std::vector<std::pair<std::string, std::string>>& sheets);

// A model over the stock lists of three months, whose signals are watched all the time.
//   october: 1 Pen 2, 2 Cup 3, 3 Hat 5.  november: 2 costs 4, 3 is gone, 4 Ink 1 is new.  december: 1 costs 9.
class ModelTest : public testing::Test {
protected:
    ModelTest();
    void TearDown() override;

    void load(const std::string& name, Side side);
    // Opens both and waits for the comparison.
    void openPair(const std::string& before = "october.csv", const std::string& after = "november.csv");
    // Runs the work that waits at that place and delivers what it came to.
    void step(std::size_t place = 0);
    // From now on, m_results takes what compared() says of each result that is shown.
    void recordResults();

    // The files of the result: "october.csv > november.csv"; empty when there is none.
    std::string compared() const;
    // The files of the sides, "" for an empty one.
    std::string files() const;
    // The result's counts: "+1 -1 ~1 =1".
    std::string counts() const;
    // The keys of the visible rows: "2 3 4".
    std::string listed() const;
    std::string selectedKey() const;
    std::string problem() const;
    // "before after"
    std::string loading() const;

    ScriptedPlatform m_platform;
    AppModel m_model{m_platform};
    ModelWatch m_watch{m_model};
    std::vector<std::string> m_results;
};

}  // namespace corvale::TestSupport
