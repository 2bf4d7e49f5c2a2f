#include <gtest/gtest.h>

#include "Corvale/updates/Appcast.h"

namespace corvale {
namespace {

const UpdateSystem linuxSix{QStringLiteral("linux"), QStringLiteral("6.1")};

QByteArray feedOf(const QByteArray& inChannel) {
    return R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:up="https://example.com/updates"><channel><title>News</title>)" +
           inChannel + "</channel></rss>";
}

QByteArray itemOf(const QByteArray& version, const QByteArray& more = {}) {
    return "<item><link>https://example.com/get</link><up:shortVersionString>" + version + "</up:shortVersionString>" +
           more + "</item>";
}

QString newestIn(const QByteArray& inChannel, const QString& version = QStringLiteral("1.0")) {
    const auto items = parseAppcast(feedOf(inChannel));
    EXPECT_TRUE(items);
    const auto newest = newestUpdate(*items, version, linuxSix);
    return newest ? newest->version : QString();
}

TEST(Appcast, SaysWhatAVersionIsAndWhereItIsToBeHad) {
    const auto items = parseAppcast(feedOf(R"(<item>
        <title>Corvale 1.4</title>
        <link>https://example.com/download</link>
        <up:link href="https://example.com/1.4.xml" rel="self"/>
        <description><![CDATA[<ul><li>Faster</li></ul>]]></description>
        <up:description>Of a picture</up:description>
        <up:releaseNotesLink>https://example.com/1.4.html</up:releaseNotesLink>
        <up:minimumSystemVersion>5.10</up:minimumSystemVersion>
        <pubDate>Sat, 21 Nov 2026 10:00:00 +0000</pubDate>
        <enclosure url="https://example.com/corvale.deb" up:version="140" up:shortVersionString="1.4" up:os="Linux"
                   length="7" type="application/octet-stream"/>
      </item>)"));
    ASSERT_TRUE(items);
    const AppcastItem expected{.version = QStringLiteral("1.4"),
                               .description = QStringLiteral("<ul><li>Faster</li></ul>"),
                               .releaseNotes = QUrl(QStringLiteral("https://example.com/1.4.html")),
                               .file = QUrl(QStringLiteral("https://example.com/corvale.deb")),
                               .page = QUrl(QStringLiteral("https://example.com/download")),
                               .system = QStringLiteral("linux"),
                               .minimumSystem = QStringLiteral("5.10")};
    EXPECT_EQ(*items, QList<AppcastItem>{expected});
}

TEST(Appcast, TakesTheVersionFromWhereverItStands) {
    EXPECT_EQ(newestIn(itemOf("2.0")), QStringLiteral("2.0"));
    EXPECT_EQ(newestIn(R"(<item><link>https://example.com</link><enclosure up:shortVersionString="2.1"/></item>)"),
              QStringLiteral("2.1"));
    EXPECT_EQ(newestIn(R"(<item><link>https://example.com</link><enclosure up:version="2.2"/></item>)"),
              QStringLiteral("2.2"));
    EXPECT_EQ(newestIn("<item><link>https://example.com</link><up:version>2.3</up:version></item>"),
              QStringLiteral("2.3"));
}

TEST(Appcast, SendsToThePageOfTheItemElseOfTheFeedElseToTheFile) {
    const auto pageIn = [](const QByteArray& inChannel) {
        const auto items = parseAppcast(feedOf(inChannel));
        return items && items->size() == 1 ? items->first().page.toString() : QStringLiteral("(none)");
    };
    const QByteArray file = R"(<enclosure url="https://example.com/file" up:version="2"/>)";
    EXPECT_EQ(
        pageIn("<link>https://example.com/feed</link><item><link>https://example.com/item</link>" + file + "</item>"),
        QStringLiteral("https://example.com/item"));
    EXPECT_EQ(pageIn("<item>" + file + "</item><link>https://example.com/feed</link>"),
              QStringLiteral("https://example.com/feed"));
    EXPECT_EQ(pageIn("<item>" + file + "</item>"), QStringLiteral("https://example.com/file"));
    EXPECT_EQ(pageIn(R"(<item><enclosure up:version="2"/></item>)"), QStringLiteral("(none)"));
}

TEST(Appcast, ShowsABrowserNothingButTheWeb) {
    for (const QByteArray& address : QByteArrayList{"file:///etc/passwd",
                                                    "javascript:alert(1)",
                                                    "mailto:a@example.com",
                                                    "/relative",
                                                    "https://",
                                                    "C:\\setup.exe"}) {
        const auto items =
            parseAppcast(feedOf("<item><link>" + address + "</link><up:releaseNotesLink>" + address +
                                "</up:releaseNotesLink><enclosure up:version='2' url='" + address + "'/></item>"));
        ASSERT_TRUE(items) << address.toStdString();
        EXPECT_TRUE(items->isEmpty()) << address.toStdString();
    }
}

TEST(Appcast, IsNoneWhenItIsSomethingElse) {
    for (const QByteArray feed : {"",
                                  "not xml",
                                  "<html><body/></html>",
                                  "<rss/>",
                                  "<rss><channel>",
                                  "<rss><channel/>",
                                  "<rss><channel><item></channel></rss>",
                                  "<rss><channel>&unknown;</channel></rss>"}) {
        EXPECT_FALSE(parseAppcast(feed)) << feed.toStdString();
    }
    EXPECT_TRUE(parseAppcast("<rss><channel/></rss>"));
}

TEST(Appcast, LetsNoEntityGrowWithoutBound) {
    QByteArray entities = "<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
        entities += "<!ENTITY a" + QByteArray::number(i) + " '" + inner.repeated(10) + "'>";
    }
    EXPECT_FALSE(parseAppcast("<!DOCTYPE rss [" + entities + "]><rss><channel><title>&a11;</title></channel></rss>"));
}

TEST(NewestUpdate, IsTheNewestThatIsNewer) {
    EXPECT_EQ(newestIn(itemOf("1.9") + itemOf("1.10") + itemOf("1.2")), QStringLiteral("1.10"));
    EXPECT_EQ(newestIn(itemOf("1.0") + itemOf("0.9")), QString());
    EXPECT_EQ(newestIn({}), QString());
}

TEST(NewestUpdate, RunsOnTheSystem) {
    EXPECT_EQ(newestIn(itemOf("1.4", "<up:minimumSystemVersion>6.2</up:minimumSystemVersion>") +
                       itemOf("1.3", "<up:minimumSystemVersion>6.1</up:minimumSystemVersion>")),
              QStringLiteral("1.3"));
    EXPECT_EQ(newestIn(itemOf("1.4", R"(<enclosure up:os="windows"/>)") + itemOf("1.2")), QStringLiteral("1.2"));
    EXPECT_FALSE(UpdateSystem::current().name.isEmpty());
    EXPECT_FALSE(UpdateSystem::current().version.isEmpty());
}

}  // namespace
}  // namespace corvale
