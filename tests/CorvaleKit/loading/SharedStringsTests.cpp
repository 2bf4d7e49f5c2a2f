#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/SharedStrings.h"
#include "CorvaleKit/loading/XLSX.h"
#include "tests/support/Workbooks.h"

namespace corvale::XLSX {
namespace {

using Texts = std::vector<std::string>;

Texts stringsOf(std::string_view part) {
    SharedStrings strings = sharedStrings(part);
    const Bytes bytes = strings.texts.finish();
    Texts texts;
    std::uint64_t start = 0;
    for (const std::uint64_t end : strings.ends) {
        texts.emplace_back(bytes.view().substr(start, end - start));
        start = end;
    }
    EXPECT_EQ(start, bytes.size());
    return texts;
}

Texts stringsOf(const Texts& items) { return stringsOf(std::string_view(Workbooks::sharedStrings(items))); }

TEST(SharedStrings, EveryItemIsAString) {
    EXPECT_EQ(stringsOf(Texts{"<t>one</t>", "<t/>", "", "<t> two </t>"}), (Texts{"one", "", "", " two "}));
    EXPECT_EQ(stringsOf(Texts{}), Texts{});
}

TEST(SharedStrings, RunsAreJoined) {
    EXPECT_EQ(stringsOf(Texts{"<r><rPr><b/></rPr><t>bold</t></r><r><t> and plain</t></r>"}), Texts{"bold and plain"});
    EXPECT_EQ(stringsOf(Texts{"<t>a</t><t>b</t>"}), Texts{"ab"});
}

TEST(SharedStrings, PhoneticGuidesAreLeftOut) {
    EXPECT_EQ(stringsOf(Texts{"<t>東京</t><rPh sb=\"0\" eb=\"2\"><t>トウキョウ</t></rPh><phoneticPr/>", "<t>next</t>"}),
              (Texts{"東京", "next"}));
    EXPECT_EQ(stringsOf(Texts{"<rPh><rPh><t>x</t></rPh><t>y</t></rPh><t>z</t>"}), Texts{"z"});
}

TEST(SharedStrings, PrettyPrintingAddsNothing) {
    EXPECT_EQ(
        stringsOf("<sst count=\"2\">\n  <si>\n    <t>one</t>\n  </si>\n  <si>\n    <r>\n      <t>t</t>\n    </r>\n"
                  "    <r>\n      <t>wo\n</t>\n    </r>\n  </si>\n</sst>\n"),
        (Texts{"one", "two\n"}));
}

TEST(SharedStrings, ElementsMayHavePrefixes) {
    EXPECT_EQ(stringsOf("<x:sst xmlns:x=\"u\"><x:si><x:t>one</x:t></x:si></x:sst>"), Texts{"one"});
}

TEST(SharedStrings, TextsOutsideAnItemAreNoStrings) {
    EXPECT_EQ(stringsOf("<sst><t>a</t><si><t>b</t></si><t>c</t><si><t>d</t></si></sst>"), (Texts{"b", "d"}));
}

TEST(SharedStrings, TextCountsFromTheLastTag) { EXPECT_EQ(stringsOf(Texts{"<t>lost<x/>kept</t>"}), Texts{"kept"}); }

TEST(SharedStrings, EntitiesAndLineBreaksRead) {
    EXPECT_EQ(stringsOf(Texts{"<t>a &amp; b &lt;c&gt; &#x1F600;</t>", "<t>one\r\ntwo</t>"}),
              (Texts{"a & b <c> \U0001F600", "one\ntwo"}));
}

TEST(SharedStrings, NoMoreAreKeptThanAreAskedFor) {
    const std::string part = Workbooks::sharedStrings({"<t>a</t>", "<t>b</t>", "", "<t>c</t>"});
    EXPECT_EQ(sharedStrings(part, 2).ends, (std::vector<std::uint64_t>{1, 2}));
    EXPECT_EQ(sharedStrings(part, 3).ends, (std::vector<std::uint64_t>{1, 2, 2}));
    EXPECT_EQ(sharedStrings(part).ends, (std::vector<std::uint64_t>{1, 2, 2, 3}));
}

TEST(SharedStrings, ADamagedPartIsAFailure) { EXPECT_THROW(stringsOf("<sst><si>"), Failure); }

}  // namespace
}  // namespace corvale::XLSX
