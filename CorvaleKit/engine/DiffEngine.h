#pragma once

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/loading/DataTable.h"

// Compares two tables.
namespace corvale::DiffEngine {

// What a comparison asks of its caller; both callbacks may be empty and run on the comparing thread.
struct Callbacks {
    ProgressReport progress;
    CancelCheck isCancelled;
};

// Single-threaded and without state: any number of calls may run at once. `localeStyle` is the decimal style of the
// user's locale, used where options.numberStyle is automatic and the files leave it open. A key name that a table lacks
// leaves all rows unmatched, none of them with a blank key. Throws Cancelled, nothing else of its own.
DiffResult compare(const DataTable& before, const DataTable& after, const RowMatch& match, const DiffOptions& options,
                   NumberStyle localeStyle, const Callbacks& callbacks = {});

}  // namespace corvale::DiffEngine
