#include <iostream>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/loading/DataLoader.h"

int main() {
    using namespace corvale;
    const auto before = DataLoader::load(Bytes("SKU,Price\nA-1,9.50\nA-2,3.00\nA-3,4.00\n"), "before.csv");
    const auto after = DataLoader::load(Bytes("SKU,Price\nA-1,9.75\nA-3,4.00\nA-4,1.00\nA-5,2.00\n"), "after.csv");
    const auto result = DiffEngine::compare(before, after, RowMatch::key({"SKU"}), {}, NumberStyle::dotDecimal);
    std::cout << "added " << result.summary.added << ", removed " << result.summary.removed << ", changed "
              << result.summary.changed << ", same " << result.summary.same << '\n';
}
