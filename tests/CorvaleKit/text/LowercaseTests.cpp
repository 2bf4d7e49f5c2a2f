#include <gtest/gtest.h>

#include <clocale>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"
#include "tests/support/AllTexts.h"

namespace corvale::Text {
namespace {

// The process's locale for one test.
class Locale {
public:
    explicit Locale(const char* name)
        : m_before(std::setlocale(LC_ALL, nullptr)), m_isSet(std::setlocale(LC_ALL, name)) {}
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;
    ~Locale() { std::setlocale(LC_ALL, m_before.c_str()); }

    bool isSet() const { return m_isSet; }

private:
    std::string m_before;
    bool m_isSet;
};

TEST(Lowercase, GoesScalarByScalar) {
    struct Case {
        std::string_view text;
        std::string_view lower;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"already lower 123", "already lower 123"},
        {"MiXeD @[`{ AZ", "mixed @[`{ az"},
        {"ÀÉÎÕÜ", "àéîõü"},
        {"ΟΔΟΣ", "οδοσ"},  // no final sigma: every Σ becomes the same letter
        {"Σ", "σ"},
        {"ς", "ς"},
        {"STRASSE", "strasse"},
        {"ẞß", "ßß"},
        {"İ", "i\u0307"},  // the dotted capital I keeps its dot
        {"Iı", "iı"},      // and the plain one gets none
        {"ЖЁ", "жё"},
        {"Ǆǅ", "ǆǆ"},
        {"K", "k"},  // the Kelvin sign
        {"Å", "å"},  // the Ångström sign
        {"Ω", "ω"},  // the Ohm sign
        {"ﬀ", "ﬀ"},
        {"\U00010400", "\U00010428"},
        {"Ⅷ", "ⅷ"},
        {"Ⓐ", "ⓐ"},
        {"ჀᏣᲐ", "ⴠꮳა"},
        {"\u0345", "\u0345"},
        {"中文 A", "中文 a"},
    };
    for (const auto& [text, lower] : cases) {
        EXPECT_EQ(lowercased(text), lower) << text;
        EXPECT_TRUE(lower == text || lowercasingMayChange(text)) << text;
    }
}

TEST(Lowercase, IsIdempotent) {
    for (const std::string_view text : {"İSTANBUL", "ΑΣ", "ẞ", "Ǆ"}) {
        const std::string once = lowercased(text);
        EXPECT_EQ(lowercased(once), once);
    }
}

TEST(Lowercase, BytesThatAreNoTextBecomeReplacementCharacters) {
    EXPECT_EQ(lowercased("A\xFF"
                         "B"),
              "a\uFFFDb");
}

TEST(Lowercase, AppendingLeavesWhatIsThere) {
    std::string target = "KEEP";
    appendLowercased(target, "ABC");
    appendLowercased(target, "ÉX");
    appendLowercased(target, "");
    EXPECT_EQ(target, "KEEPabcéx");
}

TEST(Lowercase, ALongTextWithOneLetterBeyondAsciiIsLoweredThroughout) {
    for (std::size_t place = 0; place < 70; ++place) {
        const std::string text = std::string(place, 'A') + "É" + std::string(70 - place, 'Z');
        const std::string lower = std::string(place, 'a') + "é" + std::string(70 - place, 'z');
        EXPECT_EQ(lowercased(text), lower);
    }
}

TEST(Lowercase, ScalarsThatChangeTheirLengthMayComeAnywhere) {
    const std::vector<std::string> parts = {"A", "z", "É", "é", "İ", "ẞ", "\u212A", "Ⱥ", "\U00010400", "中", "😀"};
    std::mt19937 random(12);
    for (int i = 0; i < 20'000; ++i) {
        std::string text;
        std::string lower;
        for (auto left = random() % 8; left > 0; --left) {
            const std::string& part = parts[random() % parts.size()];
            text += part;
            lower += lowercased(part);
        }
        ASSERT_EQ(lowercased(text), lower) << text;
    }
}

TEST(Lowercase, LowersAsScalarByScalarWhateverTheLengths) {
    // Capitals whose small letters take fewer bytes, more or as many, among bytes that are no text.
    const AllTexts::Alphabet alphabet = {"a", "B", "é", "É", "İ", "\u212A", "Ⱥ", "ẞ", "\xFF", "\xE2\x84", "\U00010400"};
    AllTexts::forEach(alphabet, 4, [](const std::string& text) {
        std::string lower;
        for (std::size_t i = 0; i < text.size();) {
            const auto scalar = Utf8::scalarAt(text, i);
            lower += lowercased(std::string_view(text).substr(i, scalar.length));
            i += scalar.length;
        }
        ASSERT_EQ(lowercased(text), lower) << testing::PrintToString(text);
    });
}

TEST(Lowercase, TheQuickLookAllowsOnlyTextsThatStayAsTheyAre) {
    EXPECT_FALSE(lowercasingMayChange(""));
    EXPECT_FALSE(lowercasingMayChange("abc 123 @[`{"));
    EXPECT_TRUE(lowercasingMayChange("abC"));
    EXPECT_TRUE(lowercasingMayChange("É"));
}

TEST(Lowercase, EqualityIgnoringCaseComparesLoweredTexts) {
    EXPECT_TRUE(equalIgnoringCase("Name", "nAME"));
    EXPECT_TRUE(equalIgnoringCase("ΟΔΟΣ", "οδοσ"));
    EXPECT_FALSE(equalIgnoringCase("ΟΔΟΣ", "οδος"));
    EXPECT_FALSE(equalIgnoringCase("straße", "STRASSE"));
    EXPECT_FALSE(equalIgnoringCase("I", "ı"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
}

TEST(Lowercase, EqualityIgnoringCaseAgreesWithItsDefinitionOnRandomTexts) {
    const std::vector<std::string_view> parts = {
        "a", "A", "k", "K", "\u212A", "É", "é", "İ", "i\u0307", "i", "\xFF", "\uFFFD"};
    std::mt19937 random(10);
    const auto randomText = [&] {
        std::string text;
        for (auto left = random() % 4; left > 0; --left) {
            text += parts[random() % parts.size()];
        }
        return text;
    };
    for (int i = 0; i < 50'000; ++i) {
        const std::string a = randomText();
        const std::string b = randomText();
        ASSERT_EQ(equalIgnoringCase(a, b), lowercased(a) == lowercased(b)) << a << " and " << b;
    }
}

TEST(Lowercase, DoesNotFollowTheLocale) {
    for (const char* name : {"C", "C.utf8", "tr_TR.UTF-8", "az_AZ.UTF-8", "lt_LT.UTF-8"}) {
        const Locale locale(name);
        if (locale.isSet()) {
            EXPECT_EQ(lowercased("TITLE İI"), "title i\u0307i") << name;
            EXPECT_TRUE(equalIgnoringCase("ID", "id")) << name;
        }
    }
}

TEST(Lowercase, ATurkishLocaleLeavesTheDotAlone) {
    const Locale locale("tr_TR.UTF-8");
    if (!locale.isSet()) {
        GTEST_SKIP() << "the locale tr_TR.UTF-8 is not installed";
    }
    EXPECT_EQ(lowercased("I"), "i");
    EXPECT_TRUE(equalIgnoringCase("FILE", "file"));
}

}  // namespace
}  // namespace corvale::Text
