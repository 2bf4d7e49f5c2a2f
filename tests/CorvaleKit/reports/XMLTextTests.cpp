#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/reports/XMLText.h"
#include "tests/support/AllTexts.h"
#include "tests/support/SlowUtf8.h"

namespace corvale {
namespace {

std::string escaped(std::string_view text) {
    std::string xml;
    XMLText::appendEscaped(xml, text);
    return xml;
}

std::string slowlyEscaped(std::string_view text) {
    std::string xml;
    for (const char32_t scalar : SlowUtf8::scalars(text)) {
        const bool isControl = scalar < 0x20 && scalar != U'\t' && scalar != U'\n' && scalar != U'\r';
        if (scalar == U'&') {
            xml += "&amp;";
        } else if (scalar == U'<') {
            xml += "&lt;";
        } else if (scalar == U'>') {
            xml += "&gt;";
        } else if (scalar == U'"') {
            xml += "&quot;";
        } else if (!isControl && scalar != 0xFFFE && scalar != 0xFFFF) {
            SlowUtf8::append(xml, scalar);
        }
    }
    return xml;
}

TEST(XMLText, EscapesMarkupAndDropsWhatXMLCannotHold) {
    using namespace std::string_literals;
    struct Case {
        std::string text;
        std::string xml;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"plain", "plain"},
        {"a & b", "a &amp; b"},
        {"&amp;", "&amp;amp;"},
        {"<b>", "&lt;b&gt;"},
        {"]]>", "]]&gt;"},
        {"say \"yes\"", "say &quot;yes&quot;"},
        {"it's", "it's"},
        {"a\tb\nc\r\nd", "a\tb\nc\r\nd"},
        {"form\ffeed", "formfeed"},
        {"\0\1\x1F"s, ""},
        {"\x7F", "\x7F"},
        {"a\uFFFFb\uFFFEc", "abc"},
        {"\uFFFD", "\uFFFD"},
        {"\U0001FFFE \U0010FFFF", "\U0001FFFE \U0010FFFF"},
        {"Zürich → 東京 👍", "Zürich → 東京 👍"},
        {"\xC3(", "\uFFFD("},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"cut \xE2\x82", "cut \uFFFD"},
    };
    for (const auto& [text, xml] : cases) {
        EXPECT_EQ(escaped(text), xml) << text;
    }
}

TEST(XMLText, AppendsToWhatIsThere) {
    std::string xml = "<t>";
    XMLText::appendEscaped(xml, "1 < 2");
    EXPECT_EQ(xml, "<t>1 &lt; 2");
}

const AllTexts::Alphabet alphabet = {
    "a", "&", "<", "\"", "\x01", "\t", "é", "\uFFFE", "😀", "\xEF", "\xBF", "\xBE", "\xC3"};

TEST(XMLText, AgreesWithTheSlowFormOnAllShortTexts) {
    AllTexts::forEach(alphabet, 4, [](const std::string& text) { ASSERT_EQ(escaped(text), slowlyEscaped(text)); });
}

TEST(XMLText, AgreesWithTheSlowFormOnRandomTexts) {
    std::mt19937 source(7);
    for (int i = 0; i < 2000; ++i) {
        const std::string text = AllTexts::random(alphabet, 60, source);
        ASSERT_EQ(escaped(text), slowlyEscaped(text));
    }
}

}  // namespace
}  // namespace corvale
