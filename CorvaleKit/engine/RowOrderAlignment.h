#pragma once

#include <vector>

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/RowPair.h"

// Pairs rows by their order: identical rows are lined up, the rows between them paired by similarity.
namespace corvale::RowOrderAlignment {

struct AlignedRows {
    std::vector<RowPair> pairs;
    std::vector<bool> areSame;  // by pair; true when its rows are known to have the same texts, false says nothing
};

// Every row of both sides once; the rows of each side in their order. Both sides have the same number of columns.
// Throws Cancelled.
AlignedRows align(const ComparisonTexts& before, const ComparisonTexts& after, const CancelCheck& isCancelled);

}  // namespace corvale::RowOrderAlignment
