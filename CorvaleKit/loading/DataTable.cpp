#include "CorvaleKit/loading/DataTable.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <numeric>
#include <utility>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/CellRowJson.h"

namespace corvale {

namespace {

// Far above any file's, and far enough below the largest integer to count on from.
constexpr std::int64_t lastRowNumber = std::int64_t{1} << 53U;

CellRows normalizedRows(const std::vector<std::vector<std::string>>& rows, std::size_t width) {
    std::vector<std::uint32_t> all(rows.size());
    std::iota(all.begin(), all.end(), 0U);
    return CellRows(CellGrid::fromTexts(rows)).selected(std::move(all), width);
}

std::vector<std::int64_t> normalizedNumbers(std::vector<std::int64_t> numbers, std::size_t rowCount,
                                            std::int64_t headerRowNumber) {
    if (numbers.size() != rowCount) {
        numbers.resize(rowCount);
        std::iota(numbers.begin(), numbers.end(), headerRowNumber + 1);
    }
    return numbers;
}

// Checked, since the library would turn fractions and numbers beyond 64 bits into other ones.
std::int64_t integerIn(const nlohmann::json& form) {
    if (!form.is_number_integer() ||
        (form.is_number_unsigned() && form.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max())) {
        throw DecodingError("A row number is no 64-bit integer.");
    }
    return form.get<std::int64_t>();
}

std::vector<std::int64_t> integersIn(const nlohmann::json& form) {
    if (!form.is_array()) {
        throw DecodingError("The row numbers are no array.");
    }
    std::vector<std::int64_t> integers;
    for (const auto& number : form) {
        integers.push_back(integerIn(number));
    }
    return integers;
}

}  // namespace

DataTable::DataTable() : m_parts(std::make_shared<const Parts>()) {}

DataTable::DataTable(Parts parts) : m_parts(std::make_shared<const Parts>(std::move(parts))) {
    CORVALE_REQUIRE(m_parts->rows.empty() || m_parts->rows.exactWidth() == m_parts->headers.size(),
                    "a table row is not as wide as its headers");
}

DataTable::DataTable(std::vector<std::string> headers, const std::vector<std::vector<std::string>>& rows,
                     std::string sourceName, std::vector<std::int64_t> rowNumbers, std::int64_t headerRowNumber)
    : DataTable([&] {
          Parts parts;
          parts.rows = normalizedRows(rows, headers.size());
          parts.headers = std::move(headers);
          parts.sourceName = std::move(sourceName);
          parts.rowNumbers = normalizedNumbers(std::move(rowNumbers), rows.size(), headerRowNumber);
          parts.headerRowNumber = headerRowNumber;
          parts.automaticHeaderRowNumber = headerRowNumber;
          return parts;
      }()) {}

std::int64_t DataTable::rowNumber(std::size_t row) const {
    const auto& numbers = m_parts->rowNumbers;
    return row < numbers.size() ? numbers[row] : static_cast<std::int64_t>(row) + 2;
}

std::string DataTable::encoded() const {
    std::string target;
    JsonWriter json(target);
    json.beginObject();
    json.key("headers");
    json.texts(headers());
    json.key("rows");
    json.beginArray();
    for (const CellRow row : rows()) {
        writeCells(json, row);
    }
    json.endArray();
    json.key("sourceName");
    json.text(sourceName());
    json.key("rowNumbers");
    json.integers(rowNumbers());
    json.key("headerRowNumber");
    json.integer(headerRowNumber());
    json.endObject();
    json.flush();
    return target;
}

DataTable DataTable::decoded(std::string_view json) {
    try {
        const auto form = nlohmann::json::parse(json);
        const std::int64_t headerRowNumber = integerIn(form.at("headerRowNumber"));
        if (headerRowNumber > lastRowNumber) {
            throw DecodingError("The header row number is beyond the end of any file.");
        }
        return DataTable(form.at("headers").get<std::vector<std::string>>(),
                         form.at("rows").get<std::vector<std::vector<std::string>>>(),
                         form.at("sourceName").get<std::string>(),
                         integersIn(form.at("rowNumbers")),
                         headerRowNumber);
    } catch (const nlohmann::json::exception& error) {
        throw DecodingError(error.what());
    }
}

}  // namespace corvale
