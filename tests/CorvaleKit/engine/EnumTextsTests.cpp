#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/engine/DiffRow.h"
#include "CorvaleKit/engine/EnumTexts.h"

namespace corvale {
namespace {

template <typename Enum>
std::vector<std::string_view> textsOf() {
    std::vector<std::string_view> texts;
    for (const auto& entry : enumTexts<Enum>) {
        texts.push_back(entry.text);
        EXPECT_EQ(rawValue(entry.value), entry.text);
        EXPECT_EQ(fromRawValue<Enum>(entry.text), entry.value);
    }
    return texts;
}

using Texts = std::vector<std::string_view>;

TEST(EnumTexts, AreTheStoredTextsInOrderOfDeclaration) {
    EXPECT_EQ(textsOf<NumberStyle>(), (Texts{"automatic", "dotDecimal", "commaDecimal"}));
    EXPECT_EQ(textsOf<ChangeKind>(), (Texts{"value", "numberFormat", "letterCase", "whitespace"}));
    EXPECT_EQ(textsOf<DiffRow::Status>(), (Texts{"added", "removed", "changed", "same"}));
    EXPECT_EQ(textsOf<DuplicateKey::Side>(), (Texts{"before", "after"}));
    EXPECT_EQ(textsOf<DiffFilter::Show>(), (Texts{"all", "changes", "added", "removed", "changed"}));
}

TEST(EnumTexts, NameTheirEnumerators) {
    EXPECT_EQ(rawValue(NumberStyle::commaDecimal), "commaDecimal");
    EXPECT_EQ(rawValue(ChangeKind::whitespace), "whitespace");
    EXPECT_EQ(rawValue(DiffRow::Status::same), "same");
    EXPECT_EQ(rawValue(DuplicateKey::Side::after), "after");
    EXPECT_EQ(rawValue(DiffFilter::Show::changed), "changed");
}

TEST(EnumTexts, AnUnknownTextStandsForNothing) {
    for (const std::string_view text : {"", "All", "changes ", "same", "unknown", "allchanges"}) {
        EXPECT_EQ(fromRawValue<DiffFilter::Show>(text), std::nullopt) << text;
    }
    EXPECT_EQ(fromRawValue<NumberStyle>("dot"), std::nullopt);
}

TEST(EnumTexts, AreReadWhileCompiling) {
    static_assert(rawValue(ChangeKind::letterCase) == "letterCase");
    static_assert(fromRawValue<ChangeKind>("letterCase") == ChangeKind::letterCase);
    static_assert(!fromRawValue<ChangeKind>("none"));
}

}  // namespace
}  // namespace corvale
