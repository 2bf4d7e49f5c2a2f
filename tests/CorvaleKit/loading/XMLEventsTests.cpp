#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale {
namespace {

using namespace std::string_literals;
using XMLEvents::Attributes;

// Writes down all events; wants the text inside elements whose name is in `wanted`.
class Recorder : public XMLEvents::Handler {
public:
    explicit Recorder(std::vector<std::string> wanted) : m_wanted(std::move(wanted)) {}

    bool onStart(std::string_view name, const Attributes& attributes) override {
        m_log += "<" + std::string(name);
        for (const auto attribute : attributes) {
            m_log += " " + std::string(attribute.name()) + "=" + std::string(attribute.value());
        }
        m_log += ">";
        return std::find(m_wanted.begin(), m_wanted.end(), name) != m_wanted.end();
    }

    void onEnd(std::string_view name, std::string& text) override { m_log += text + "</" + std::string(name) + ">"; }

    const std::string& log() const { return m_log; }

private:
    std::vector<std::string> m_wanted;
    std::string m_log;
};

// The same whether the part is read by the short cut or not.
std::string events(std::string_view part, const std::vector<std::string>& wanted = {"t"}) {
    Recorder recorder(wanted);
    XMLEvents::parse(part, recorder);
    Recorder general(wanted);
    XMLEvents::parseGenerally(part, general);
    EXPECT_EQ(recorder.log(), general.log()) << part;
    return recorder.log();
}

std::string failure(std::string_view part) {
    try {
        events(part);
    } catch (const XLSX::Failure& caught) {
        return caught.message();
    }
    return {};
}

std::string nested(int depth) {
    std::string xml;
    for (int i = 0; i < depth; ++i) {
        xml += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
        xml += "</a>";
    }
    return xml;
}

// ASCII as UTF-16, in either byte order, with a byte order mark.
std::string utf16(std::string_view ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii) {
        bytes += bigEndian ? '\0' : c;
        bytes += bigEndian ? c : '\0';
    }
    return bytes;
}

TEST(XMLEvents, NamesComeWithoutTheirPrefixAttributesWithIt) {
    EXPECT_EQ(events("<x:row xmlns:x='u' r='1' x:r='2'><x:c/><y:z:c/></x:row>"),
              "<row xmlns:x=u r=1 x:r=2><c></c><c></c></row>");
}

TEST(XMLEvents, AttributesAreFoundByTheirWholeName) {
    class Finder : public XMLEvents::Handler {
    public:
        bool onStart(std::string_view, const Attributes& attributes) override {
            EXPECT_EQ(attributes.find("id"), "1");
            EXPECT_EQ(attributes.find("r:id"), "2");
            EXPECT_EQ(attributes.find("empty"), "");
            EXPECT_EQ(attributes.find("i"), std::nullopt);
            EXPECT_EQ(attributes.find(""), std::nullopt);
            EXPECT_FALSE((*attributes.begin()).is('i'));
            return false;
        }
        void onEnd(std::string_view, std::string&) override {}
    } finder;
    XMLEvents::parse("<a id='1' r:id='2' empty=''/>", finder);
}

TEST(XMLEvents, TheLetterOfAnAttributeIsItsWholeName) {
    EXPECT_TRUE(XMLEvents::Attribute("r", "A1").is('r'));
    EXPECT_FALSE(XMLEvents::Attribute("r", "A1").is('s'));
    EXPECT_FALSE(XMLEvents::Attribute("rr", "A1").is('r'));
    EXPECT_FALSE(XMLEvents::Attribute("", "A1").is('r'));
}

TEST(XMLEvents, TextIsCollectedOnlyWhereItIsWanted) {
    EXPECT_EQ(events("<a>one<t>two</t>three<v>four</v></a>"), "<a><t>two</t><v></v></a>");
    EXPECT_EQ(events("<a>one<b>two</b></a>", {}), "<a><b></b></a>");
}

TEST(XMLEvents, TextStartsAnewAtEveryTag) {
    EXPECT_EQ(events("<t>one<b>two</b>three</t>"), "<t><b>two</b>three</t>");
    EXPECT_EQ(events("<t>one<t>two</t>three<b/>four</t>"), "<t><t>two</t><b></b>four</t>");
    EXPECT_EQ(events("<a><t>one</t>two<t>three</t></a>"), "<a><t>one</t><t>three</t></a>");
}

TEST(XMLEvents, TextIsWholeWhateverItIsMadeOf) {
    EXPECT_EQ(events("<t>a\nb&amp;c<!-- no -->&#x20AC;<![CDATA[<d>]]>\r\ne</t>"), "<t>a\nb&c€<d>\ne</t>");
    const std::string longText(100'000, 'x');
    EXPECT_EQ(events("<t>" + longText + "</t>"), "<t>" + longText + "</t>");
}

TEST(XMLEvents, AHandlerMayTakeTheTextAway) {
    class Taker : public XMLEvents::Handler {
    public:
        bool onStart(std::string_view, const Attributes&) override { return true; }
        void onEnd(std::string_view, std::string& text) override { texts.push_back(std::move(text)); }
        std::vector<std::string> texts;
    } taker;
    XMLEvents::parse("<a><b>one</b><b>two</b>three</a>", taker);
    EXPECT_EQ(taker.texts, (std::vector<std::string>{"one", "two", "three"}));
}

TEST(XMLEvents, AllEncodingsBecomeUtf8) {
    const std::string xml = "<a><t>text</t></a>";
    EXPECT_EQ(events(utf16(xml, false)), events(xml));
    EXPECT_EQ(events(utf16(xml, true)), events(xml));
    EXPECT_EQ(events("\xEF\xBB\xBF" + xml), events(xml));
    EXPECT_EQ(events("<?xml version='1.0' encoding='ISO-8859-1'?><t n='\xE9'>\xFC</t>"), "<t n=é>ü</t>");
    EXPECT_EQ(events("\xFF\xFE<\0t\0>\0\x3D\xD8\x00\xDE<\0/\0t\0>\0"s), "<t>\U0001F600</t>");
}

TEST(XMLEvents, WhatIsNoXmlFailsWithTheParsersReason) {
    struct Case {
        std::string part;
        std::string_view reason;
    };
    const std::vector<Case> cases = {
        {"", "no element found"},
        {"<a>", "no element found"},
        {"<a></b>", "mismatched tag"},
        {"<a", "unclosed token"},
        {"<a/><b/>", "junk after document element"},
        {"<a b='1' b='2'/>", "duplicate attribute"},
        {"<a>&nothing;</a>", "undefined entity"},
        {"<a>\xFF</a>", "not well-formed (invalid token)"},
        {"<a>\xC0\xAF</a>", "not well-formed (invalid token)"},
        {"<a>\x01</a>", "not well-formed (invalid token)"},
        {"plain text", "syntax error"},
        {"<?xml version='1.0' encoding='klingon'?><a/>", "unknown encoding"},
    };
    for (const auto& [part, reason] : cases) {
        EXPECT_EQ(failure(part), "Part of the workbook couldn’t be read (" + std::string(reason) + ").") << part;
    }
}

TEST(XMLEvents, ExternalEntitiesReadAsNothing) {
    EXPECT_EQ(events("<!DOCTYPE t [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><t>a&x;b</t>"), "<t>ab</t>");
    EXPECT_EQ(events("<!DOCTYPE t SYSTEM 'file:///etc/passwd'><t>a</t>"), "<t>a</t>");
}

TEST(XMLEvents, EntitiesOfThePartAreReadUnlessTheyExplode) {
    EXPECT_EQ(events("<!DOCTYPE t [<!ENTITY x 'word'>]><t>a &x;</t>"), "<t>a word</t>");
    std::string bomb = "<!DOCTYPE t [<!ENTITY e0 'ha ha ha ha '>";
    for (int i = 1; i < 12; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k) {
            bomb += inner;
        }
        bomb += "'>";
    }
    EXPECT_EQ(failure(bomb + "]><t>&e11;</t>"),
              "Part of the workbook couldn’t be read (limit on input amplification factor (from DTD and entities) "
              "breached).");
}

TEST(XMLEvents, NestingHasALimit) {
    EXPECT_EQ(failure(nested(1000)), "");
    EXPECT_EQ(failure(nested(1001)), "Part of the workbook couldn’t be read (parsing aborted).");
    EXPECT_EQ(failure(nested(100'000)), "Part of the workbook couldn’t be read (parsing aborted).");
}

TEST(XMLEvents, PiecesMakeNoDifference) {
    const std::string xml =
        "<?xml version='1.0'?>\n<a one='1'>x<t>zwölf &lt; €</t>\n  <x:b y='é'/><t>\U0001F600</t></a>\n";
    const std::string whole = events(xml);
    for (std::size_t piece = 1; piece <= xml.size(); ++piece) {
        Recorder recorder({"t"});
        XMLEvents::parseGenerally(xml, recorder, piece);
        EXPECT_EQ(recorder.log(), whole) << piece;
    }
}

TEST(XMLEvents, AFailureInALaterPieceIsFoundToo) {
    Recorder recorder({});
    EXPECT_THROW(XMLEvents::parseGenerally("<a><b></a></b>", recorder, 4), XLSX::Failure);
}

// Throws at the event with a number, counting from 0, and counts those that come.
class Thrower : public XMLEvents::Handler {
public:
    explicit Thrower(int fatal) : m_fatal(fatal) {}

    bool onStart(std::string_view, const Attributes&) override {
        count();
        return true;
    }
    void onEnd(std::string_view, std::string&) override { count(); }

    int events = 0;

private:
    void count() {
        if (events++ == m_fatal) {
            throw std::out_of_range("event " + std::to_string(m_fatal));
        }
    }

    int m_fatal;
};

// Parts that differ in what parse leaves to the general parser: nothing, all of it, the last of it.
TEST(XMLEvents, WhatAHandlerThrowsEndsTheWalk) {
    for (const std::string_view xml : {"<a><b/>text<c>text</c></a>",
                                       "<!-- no --><a><b/>text<c>text</c></a>",
                                       "<a><b/>text<c>text<!-- no --></c></a>"}) {
        for (int fatal = 0; fatal < 6; ++fatal) {
            Thrower thrower(fatal);
            try {
                XMLEvents::parse(xml, thrower);
                ADD_FAILURE() << "nothing thrown at event " << fatal << " of " << xml;
            } catch (const std::out_of_range& caught) {
                EXPECT_EQ(caught.what(), "event " + std::to_string(fatal));
            }
            EXPECT_EQ(thrower.events, fatal + 1) << xml;
        }
        Thrower patient(6);
        XMLEvents::parse(xml, patient);
        EXPECT_EQ(patient.events, 6) << xml;
    }
}

}  // namespace
}  // namespace corvale
