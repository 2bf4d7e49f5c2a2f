#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/EnumTexts.h"

namespace corvale {

// How the grid shows a row.
enum class ViewMode : std::uint8_t {
    unified,     // one cell a column, old and new value together
    sideBySide,  // Before's cells on the left, After's on the right
};

template <>
inline constexpr std::array<EnumText<ViewMode>, 2> enumTexts<ViewMode>{{
    {ViewMode::unified, "unified"},
    {ViewMode::sideBySide, "sideBySide"},
}};
static_assert(enumTextsAreInOrder<ViewMode>());

// The user's choices that outlive a run.
struct AppSettings {
    bool onboardingDone = false;  // the welcome screen was dismissed
    DiffOptions options;
    ViewMode view = ViewMode::unified;
    bool includeUnchangedInReports = false;  // of Excel reports

    // The stored form, JSON. Throws nothing of its own.
    std::string encoded() const;
    // A missing or null key takes its default, so that what an older version wrote still loads. Throws DecodingError
    // for what is no such record, or has a value of the wrong type or an unknown one.
    static AppSettings decoded(std::string_view json);

    friend bool operator==(const AppSettings&, const AppSettings&) = default;
};

}  // namespace corvale
