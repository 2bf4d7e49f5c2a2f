#pragma once

#include "CorvaleKit/loading/DataTable.h"

// Tables to try a comparison with, made in memory; the files they are named after do not exist.
namespace corvale::SampleData {

struct Pair {
    DataTable before;
    DataTable after;
};

// A shop's stock list of two months: key "SKU", with every kind of row and change.
Pair stock();

// A list of orders, key "Order ID", with rows in another order and changes of spacing and letter case alone.
Pair orders();

}  // namespace corvale::SampleData
