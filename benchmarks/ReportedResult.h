#pragma once

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale::benchmarks {

// A comparison of 1,000,000 × 10 with 100,000 changed cells, made once: what the reports are measured on.
const DiffResult& reportedResult();

}  // namespace corvale::benchmarks
