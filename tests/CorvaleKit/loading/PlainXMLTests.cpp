#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/PlainXML.h"
#include "CorvaleKit/loading/ZipReader.h"
#include "tests/support/Repeated.h"
#include "tests/support/TestFiles.h"
#include "tests/support/XMLTwins.h"

namespace corvale {
namespace {

using namespace std::string_literals;
using TestSupport::repeated;

bool isPlain(std::string_view part) {
    XMLTwins::Recorder recorder(0);
    XMLEvents::Delivery delivery(recorder);
    return PlainXML::deliver(part, delivery);
}

std::string nested(std::size_t depth) { return repeated("<a>", depth) + repeated("</a>", depth); }

std::string withAttributes(int count) {
    std::string tag = "<a";
    for (int i = 0; i < count; ++i) {
        tag += " x" + std::to_string(i) + "='" + std::to_string(i) + "'";
    }
    return tag + "/>";
}

const std::string sheetOfAProgram =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
    "mc:Ignorable=\"x14ac\" xr:uid=\"{00000000-0001-0000-0000-000000000000}\"><dimension ref=\"A1:C2\"/>"
    "<sheetData><row r=\"1\" spans=\"1:3\" x14ac:dyDescent=\"0.25\"><c r=\"A1\" t=\"s\"><v>0</v></c>"
    "<c r=\"B1\" s=\"1\"><f>SUM(A1:A2)&amp;\"x\"</f><v>44197.5</v></c></row>"
    "<row r=\"2\"><c r=\"A2\" t=\"inlineStr\"><is><t xml:space=\"preserve\"> a &lt; b\r\nÜ </t></is></c>"
    "<c r=\"B2\" t=\"b\"><v>1</v></c><c r=\"C2\" t=\"str\"><v></v></c></row></sheetData>"
    "<hyperlinks><hyperlink ref=\"A1\" display=\"R&amp;D\" r:id=\"rId1\"/></hyperlinks></worksheet>";

// Each of them is taken without the general parser's help, which would be worth nothing if it went unseen.
const std::vector<std::string> plainParts = {
    sheetOfAProgram,
    "<sst "
    "count=\"2\"><si><t>zero</t></si><si><r><rPr><b/></rPr><t>o</t></r><r><t>ne</t></r><rPh><t>x</t></rPh></si></sst>",
    "<a/>",
    "<a></a>",
    "<a ></a >",
    "<a\t\r\n b = 'c' />",
    " \t\r\n<a/> \t\r\n",
    "\xEF\xBB\xBF<a/>",
    "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a/>",
    "<?xml version='1.0'?><a/>",
    "<?xml version = \"1.0\" standalone='no' ?>\n<a/>",
    "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?><a/>",
    "<x:row x:r='1' :='2' r:='3' a:b:c='4'><:/><x:/></x:row>",
    "<_a.b-c1 _.-1=''/>",
    "<a b='\"' c=\"'\" d='>' e=']]>' f='\x7F'/>",
    "<a b='é&#233;&#xE9;&#xe9;&amp;&lt;&gt;&quot;&apos;&#10;&#13;&#9;' c='&#x10FFFF;'/>",
    "<a>&amp;&lt;&gt;&quot;&apos;&#0000000065;&#x41;&#xD7FF;&#xE000;&#xFFFD;&#x10000;&#32;</a>",
    "<a>\r\r\n\n\r&#13;\n&#xD;</a>",
    "<a>> ]> ] ]]&gt; ]]&#62; \" ' \x7F \xC2\x80 \xEF\xB7\x90 \xEF\xBF\xBD \xF0\x9F\xBF\xBE \xF4\x8F\xBF\xBF</a>",
    "<t>one<t>two</t>three<b/>four</t>",
    nested(100),
    withAttributes(32),
};

// Sound or not, the general parser has to say what becomes of them.
const std::vector<std::string> otherParts = {
    "",
    " ",
    "plain text",
    "<",
    "<>",
    "< a/>",
    "<a",
    "<a/",
    "<a/ >",
    "<a//>",
    "<a>",
    "<a></a",
    "<a></",
    "<a></b>",
    "<a></aa>",
    "<aa></a>",
    "<a></ a>",
    "<a></a b='c'>",
    "<x:a></a>",
    "<a/><a/>",
    "<a/>x",
    "x<a/>",
    "</a>",
    "<a/></a>",
    "<1/>",
    "<-a/>",
    "<a&b/>",
    "<é/>",
    "<a é='1'/>",
    "<a b='1' b='2'/>",
    "<a b='1' c='2' b='1'/>",
    "<a b='1'c='2'/>",
    "<a b/>",
    "<a b=/>",
    "<a b=c/>",
    "<a b='/>",
    "<a b='\">x</a>",
    "<a b='<'/>",
    "<a b='&'/>",
    "<a b='&x;'/>",
    "<a b='\t'/>",
    "<a b='\r\n'/>",
    "<a b='\x01'/>",
    "<a b='\xFF'/>",
    "<a b=\"'\xFF'\"'/>",
    "<a b='\"<\"'\"/>",
    "<a b='\xEF\xBF\xBE'/>",
    "<a 'b'/>",
    "<a>&</a>",
    "<a>&amp</a>",
    "<a>&AMP;</a>",
    "<a>&x;</a>",
    "<a>&#;</a>",
    "<a>&#x;</a>",
    "<a>&#X41;</a>",
    "<a>&#-65;</a>",
    "<a>&#+65;</a>",
    "<a>&# 65;</a>",
    "<a>&#65 ;</a>",
    "<a>&#65</a>",
    "<a>&#x4G;</a>",
    "<a>&#x0x41;</a>",
    "<a>&#0;</a>",
    "<a>&#8;</a>",
    "<a>&#11;</a>",
    "<a>&#x1F;</a>",
    "<a>&#xD800;</a>",
    "<a>&#xDFFF;</a>",
    "<a>&#xFFFE;</a>",
    "<a>&#xFFFF;</a>",
    "<a>&#x110000;</a>",
    "<a>&#4294967361;</a>",
    "<a>&#99999999999999999999;</a>",
    "<a>]]></a>",
    "<a>x]]]></a>",
    "<a>\x01</a>",
    "<a>\x1F</a>",
    "<a>"s + '\0' + "</a>",
    "<a>\x80</a>",
    "<a>\xC0\xAF</a>",
    "<a>\xC3</a>",
    "<a>\xE0\x80\x80</a>",
    "<a>\xED\xA0\x80</a>",
    "<a>\xEF\xBF\xBE</a>",
    "<a>é\xEF\xBF\xBFé</a>",
    "<a>\xF0\x9F\x98</a>",
    "<a>\xF4\x90\x80\x80</a>",
    "<a>\xC3",
    "<!-- no --><a/>",
    "<a/><!-- no -->",
    "<a>x<!-- no -->y</a>",
    "<a><b/><?php no ?><b/></a>",
    "<?php no ?><a/>",
    "<a>x<![CDATA[<y>]]>z</a>",
    "<!DOCTYPE a><a/>",
    "<!DOCTYPE a [<!ATTLIST a b CDATA 'x'>]><a/>",
    "<!DOCTYPE a [<!ENTITY x 'word'><!ENTITY amp 'and'>]><a>&x;&amp;</a>",
    " <?xml version='1.0'?><a/>",
    "<?xml?><a/>",
    "<?xml ?><a/>",
    "<?xml-stylesheet href='a'?><a/>",
    "<?XML version='1.0'?><a/>",
    "<?xml version='1.1'?><a/>",
    "<?xml version='2.0'?><a/>",
    "<?xml version='1.0'encoding='UTF-8'?><a/>",
    "<?xml version='1.0' x?><a/>",
    "<?xml version='1.0' ?",
    "<?xml version='&#49;.0'?><a/>",
    "<?xml version='1.0' encoding='&#85;TF-8'?><a/>",
    "<?xml encoding='UTF-8'?><a/>",
    "<?xml encoding='UTF-8' version='1.0'?><a/>",
    "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>",
    "<?xml version='1.0' standalone='maybe'?><a/>",
    "<?xml version='1.0' encoding='UTF-8' standalone='yes' more='1'?><a/>",
    "<?xml version='1.0' version='1.0'?><a/>",
    "<?xml version='1.0' encoding='Utf-8'?><a>é</a>",
    "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>",
    "<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>",
    "<?xml version='1.0' encoding='UTF-16'?><a/>",
    "<?xml version='1.0' encoding='klingon'?><a/>",
    "\xEF\xBB\xBF\xEF\xBB\xBF<a/>",
    "\xEF\xBB<a/>",
    "\xFF\xFE<\0a\0/\0>\0"s,
    "\xFE\xFF\0<\0a\0/\0>"s,
    "<\0a\0/\0>\0"s,
    nested(101),
    nested(1000),
    nested(1001),
    withAttributes(33),
    "<a b='" + repeated("&lt;", 1000) + "<'/>",
    // What comes too late to have been foreseen.
    sheetOfAProgram + "<!-- written by hand -->",
    sheetOfAProgram + "x",
    sheetOfAProgram.substr(0, sheetOfAProgram.size() - 1),
    sheetOfAProgram.substr(0, sheetOfAProgram.rfind("</sheetData>")) + "<row><c t='str'><v>a<!-- -->b</v></c></row>" +
        "</sheetData></worksheet>",
    sheetOfAProgram.substr(0, sheetOfAProgram.rfind("</sheetData>")) + "<row><c><v>1</c></v></row>",
};

void expectAgreement(std::string_view part) {
    constexpr unsigned seeds = 4;
    for (unsigned seed = 0; seed < seeds; ++seed) {
        EXPECT_EQ(XMLTwins::events(part, XMLEvents::parse, seed),
                  XMLTwins::events(part, XMLTwins::parseGenerally, seed))
            << part;
    }
    EXPECT_EQ(XMLTwins::sheet(part, XMLEvents::parse), XMLTwins::sheet(part, XMLTwins::parseGenerally)) << part;
    EXPECT_EQ(XMLTwins::strings(part, XMLEvents::parse), XMLTwins::strings(part, XMLTwins::parseGenerally)) << part;
}

TEST(PlainXML, WhatProgramsWriteIsPlain) {
    for (const auto& part : plainParts) {
        EXPECT_TRUE(isPlain(part)) << part;
    }
}

TEST(PlainXML, AllElseIsLeftToTheGeneralParser) {
    for (const auto& part : otherParts) {
        EXPECT_FALSE(isPlain(part)) << part;
    }
}

TEST(PlainXML, BothParsersReadTheSame) {
    for (const auto* parts : {&plainParts, &otherParts}) {
        for (const auto& part : *parts) {
            expectAgreement(part);
        }
    }
}

TEST(PlainXML, BothParsersReadTheSameHoweverMuchIsCutOff) {
    for (std::size_t length = 0; length <= sheetOfAProgram.size(); ++length) {
        expectAgreement(std::string_view(sheetOfAProgram).substr(0, length));
    }
}

// Every sequence of at most `length` of the pieces, between the two ends.
void expectAgreementOfAll(const std::vector<std::string>& pieces, int length, const std::string& start,
                          const std::string& end) {
    const std::string part = start + end;
    if (XMLTwins::events(part, XMLEvents::parse, 0) != XMLTwins::events(part, XMLTwins::parseGenerally, 0)) {
        ADD_FAILURE() << part;
    }
    for (std::size_t i = 0; length > 0 && i < pieces.size(); ++i) {
        expectAgreementOfAll(pieces, length - 1, start + pieces[i], end);
    }
}

TEST(PlainXML, BothParsersReadTheSameOfAllShortSequences) {
    expectAgreementOfAll({"'", "\"", "<", "&", "&#65;", "\xFF", "x"}, 5, "<a b=", "/>");
    expectAgreementOfAll({"<", ">", "/", "a", ":", "=", "'", " ", "&", "]"}, 4, "", "");
    expectAgreementOfAll({"<", ">", "/", "a", "=", "'", "\"", "\n", "&lt;", "!", "?"}, 3, "<a", "</a>");
    expectAgreementOfAll(
        {"<v>", "</v>", "<v/>", "x", "\r", "\n", "]]", ">", "&#65;", "é", "<!---->"}, 3, "<c t='str'>", "</c>");
    expectAgreementOfAll({"\x80", "\xBF", "\xC2", "\xED", "\xEF", "\xBE", "\xF4", "x"}, 4, "<t>", "</t>");
    expectAgreementOfAll(
        {" version", " encoding", " standalone", "='1.0'", "='UTF-8'", "=\"yes\"", " "}, 4, "<?xml", "?><a/>");
}

TEST(PlainXML, BothParsersReadTheSameAfterRandomChanges) {
    constexpr int rounds = 4000;
    constexpr std::string_view bytes = "<>/&;#x\"'=]! \r\n\t:ab01?-\x01\xC3\xA9\xEF\xBF\xBE";
    std::mt19937 random(7);
    const auto below = [&random](std::size_t end) { return random() % end; };
    for (int round = 0; round < rounds; ++round) {
        std::string part = plainParts[below(plainParts.size())];
        for (std::size_t change = below(3); change < 3; ++change) {
            const std::size_t place = below(part.size() + 1);
            const std::size_t removed = below(3);
            part.replace(place, removed, std::string(below(3), bytes[below(bytes.size())]));
        }
        ASSERT_TRUE(XMLTwins::agree(part, static_cast<unsigned>(below(5)))) << part;
    }
}

// Every part, of whatever kind; those that cannot be unpacked are not read either.
void expectAgreementOfParts(const std::filesystem::path& file) {
    const std::string archive = TestFiles::read(file);
    try {
        for (const auto& entry : ZipReader::entries(archive)) {
            const Bytes part = ZipReader::extract(entry, archive);
            EXPECT_TRUE(XMLTwins::agree(part.view(), 0)) << file << ' ' << entry.path;
        }
    } catch (const ZipReader::Failure&) {}
}

TEST(PlainXML, BothParsersReadTheSameOfAllSamples) {
    const auto samples = TestFiles::samples();
    if (!samples) {
        GTEST_SKIP() << "the CMake option CORVALE_SAMPLES names no folder of sample files";
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(*samples)) {
        if (entry.is_regular_file() && entry.path().extension() == ".xlsx") {
            expectAgreementOfParts(entry.path());
        }
    }
}

}  // namespace
}  // namespace corvale
