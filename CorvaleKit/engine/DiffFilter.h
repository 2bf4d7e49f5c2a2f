#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/engine/EnumTexts.h"

namespace corvale {

// Which rows of a result are listed.
struct DiffFilter {
    // Which statuses pass; `changes` is everything but same.
    enum class Show : std::uint8_t { all, changes, added, removed, changed };

    Show show = Show::changes;
    std::optional<std::int64_t> column;  // index into DiffResult::columns: only rows with a changed cell there
    std::string search;                  // words that must all occur in the row's key or cells; case does not count

    // Indexes into result.rows, ascending. Throws Cancelled when asked to stop, nothing else of its own.
    std::vector<std::int64_t> apply(const DiffResult& result, const CancelCheck& isCancelled = {}) const;

    friend bool operator==(const DiffFilter&, const DiffFilter&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const DiffFilter& f) {
        return H::combine(std::move(state), f.show, f.column, f.search);
    }
};

template <>
inline constexpr std::array<EnumText<DiffFilter::Show>, 5> enumTexts<DiffFilter::Show>{{
    {DiffFilter::Show::all, "all"},
    {DiffFilter::Show::changes, "changes"},
    {DiffFilter::Show::added, "added"},
    {DiffFilter::Show::removed, "removed"},
    {DiffFilter::Show::changed, "changed"},
}};
static_assert(enumTextsAreInOrder<DiffFilter::Show>());

}  // namespace corvale
