#include "CorvaleKit/reports/SampleData.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/CellGrid.h"
#include "CorvaleKit/loading/TableBuilder.h"

namespace corvale::SampleData {

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

DataTable table(std::string name, const Row& headers, const Rows& rows) {
    Rows source = {headers};
    source.insert(source.end(), rows.begin(), rows.end());
    return TableBuilder::build(CellRows(CellGrid::fromTexts(source)), std::move(name), 1);
}

struct Product {
    const char* item;
    const char* category;
    const char* price;
    const char* location;
};

constexpr std::array<Product, 24> products = {{
    {"Stoneware mug, sky blue", "Kitchen", "14.00", "A1"},   {"Stoneware mug, sage", "Kitchen", "14.00", "A1"},
    {"Linen tea towel, set of 2", "Kitchen", "18.50", "A2"}, {"Walnut serving board", "Kitchen", "42.00", "A3"},
    {"Beeswax candle, tall", "Home", "9.75", "B1"},          {"Beeswax candle, short", "Home", "7.25", "B1"},
    {"Wool throw, oatmeal", "Home", "89.00", "B2"},          {"Cotton cushion cover", "Home", "24.00", "B2"},
    {"Brass plant mister", "Garden", "21.00", "C1"},         {"Terracotta pot, small", "Garden", "6.50", "C2"},
    {"Terracotta pot, large", "Garden", "15.00", "C2"},      {"Seed starter kit", "Garden", "19.99", "C3"},
    {"Dot grid notebook", "Paper", "12.00", "D1"},           {"Recycled envelopes, 25", "Paper", "5.50", "D1"},
    {"Fountain pen, matte black", "Paper", "36.00", "D2"},   {"Ink bottle, deep teal", "Paper", "11.00", "D2"},
    {"Canvas tote, natural", "Bags", "16.00", "E1"},         {"Waxed canvas backpack", "Bags", "120.00", "E2"},
    {"Leather card holder", "Bags", "28.00", "E1"},          {"Enamel pin, mountain", "Gifts", "8.00", "F1"},
    {"Puzzle, 500 pieces", "Gifts", "22.00", "F2"},          {"Wooden yo-yo", "Gifts", "6.00", "F2"},
    {"Hand cream, lavender", "Care", "13.50", "G1"},         {"Bar soap, oat and honey", "Care", "7.00", "G1"},
}};

constexpr std::size_t firstNumber = 1001;
constexpr std::size_t item = 1;
constexpr std::size_t price = 3;
constexpr std::size_t quantity = 4;
constexpr std::size_t location = 5;

Rows octoberStock() {
    Rows rows;
    for (std::size_t i = 0; i < products.size(); ++i) {
        const Product& product = products[i];
        rows.push_back({"SKU-" + std::to_string(firstNumber + i),
                        product.item,
                        product.category,
                        product.price,
                        std::to_string(i * 7 % 40 + 3),
                        product.location});
    }
    return rows;
}

Rows novemberStock() {
    Rows rows = octoberStock();
    rows[2][quantity] = "12";
    rows[3][price] = "39.00";
    rows[6][quantity] = "8";
    rows[6][price] = "79.00";
    rows[9][location] = "C4";
    rows[12][item] = "Dot grid notebook, A5";
    rows[15][price] = "11";
    rows.erase(rows.begin() + 21);  // the yo-yo
    rows.push_back({"SKU-1025", "Stoneware bowl, sky blue", "Kitchen", "19.00", "16", "A1"});
    rows.push_back({"SKU-1026", "Brass bookends", "Home", "48.00", "5", "B3"});
    rows.push_back({"SKU-1027", "Watering can, copper", "Garden", "34.00", "9", "C3"});
    return rows;
}

}  // namespace

Pair stock() {
    const Row headers = {"SKU", "Item", "Category", "Price", "Qty", "Location"};
    return {table("Stock - October.xlsx", headers, octoberStock()),
            table("Stock - November.xlsx", headers, novemberStock())};
}

Pair orders() {
    const Row headers = {"Order ID", "Date", "Customer", "Item", "Qty", "Total", "Status"};
    const Rows before = {
        {"SO-2041", "2026-03-02", "Harbour Café", "Espresso beans, 1 kg", "6", "143.40", "Shipped"},
        {"SO-2042", "2026-03-02", "Alder & Oak", "Oak stool", "2", "178.00", "Shipped"},
        {"SO-2043", "2026-03-03", "Northside Clinic", "Paper towels, 12", "10", "89.00", "Packed"},
        {"SO-2044", "2026-03-03", "Studio Mirada", "Desk lamp, black", "4", "236.00", "Packed"},
        {"SO-2045", "2026-03-04", "Tall Pines School", "Whiteboard markers", "30", "54.00", "Packed"},
        {"SO-2046", "2026-03-04", "Harbour Café", "Filter papers, 100", "8", "27.60", "Open"},
        {"SO-2047", "2026-03-05", "Lakeview Hotel", "Bath towel, white", "40", "620.00", "Open"},
        {"SO-2048", "2026-03-05", "Bright Dental", "Waiting room chair", "3", "267.00", "Open"},
        {"SO-2049", "2026-03-06", "Alder & Oak", "Walnut oil, 500 ml", "5", "62.50", "Open"},
        {"SO-2050", "2026-03-06", "Corner Bakery", "Proofing basket", "12", "118.80", "Open"},
        {"SO-2051", "2026-03-09", "Studio Mirada", "Cable tray", "4", "92.00", "Open"},
        {"SO-2052", "2026-03-09", "Lakeview Hotel", "Bedside lamp", "6", "294.00", "Open"},
    };
    Rows after = before;
    after[2][6] = "Shipped";
    after[3][2] = "studio mirada";
    after[5][4] = "12";
    after[5][5] = "41.40";
    after[6][3] = "Bath  towel, white";
    after[9][1] = "2026-03-10";
    std::swap(after[0], after[1]);
    after.erase(after.begin() + 7);  // the chairs
    after.push_back({"SO-2053", "2026-03-10", "Corner Bakery", "Bench scraper", "4", "31.60", "Open"});
    after.push_back({"SO-2054", "2026-03-10", "Tall Pines School", "Poster frame, A2", "8", "99.20", "Open"});
    return {table("Orders - before.csv", headers, before), table("Orders - after.csv", headers, after)};
}

}  // namespace corvale::SampleData
