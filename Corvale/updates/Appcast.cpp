#include "Corvale/updates/Appcast.h"

#include <QSysInfo>
#include <QXmlStreamReader>

#include "Corvale/updates/Version.h"

namespace corvale {

namespace {

// The elements and attributes that RSS lacks have a prefix, whose namespace differs from publisher to publisher: all
// are known by their local names.
QString attribute(const QXmlStreamAttributes& attributes, QStringView name) {
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == name) {
            return attribute.value().toString().trimmed();
        }
    }
    return {};
}

// Whatever a feed says, a browser is shown nothing but the web.
QUrl webAddress(const QString& text) {
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool isOfTheWeb = url.scheme() == u"https" || url.scheme() == u"http";
    return isOfTheWeb && !url.host().isEmpty() ? url : QUrl();
}

class FeedReader {
public:
    explicit FeedReader(const QByteArray& feed) : m_xml(feed) {}

    std::optional<QList<AppcastItem>> read() {
        if (!m_xml.readNextStartElement() || m_xml.name() != u"rss") {
            return std::nullopt;
        }
        bool hasChannel = false;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == u"channel") {
                hasChannel = true;
                readChannel();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        return hasChannel && !m_xml.hasError() ? std::optional(m_items) : std::nullopt;
    }

private:
    void readChannel() {
        QUrl page;
        const qsizetype first = m_items.size();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == u"item") {
                readItem();
            } else if (m_xml.name() == u"link" && m_xml.prefix().isEmpty()) {
                page = webAddress(text());
            } else {
                m_xml.skipCurrentElement();
            }
        }
        for (qsizetype i = first; i < m_items.size(); ++i) {
            if (m_items[i].page.isEmpty()) {
                m_items[i].page = page.isEmpty() ? m_items[i].file : page;
            }
        }
        m_items.removeIf([](const AppcastItem& item) { return item.version.isEmpty() || item.page.isEmpty(); });
    }

    void readItem() {
        AppcastItem item;
        QString build;
        while (m_xml.readNextStartElement()) {
            const QStringView name = m_xml.name();
            const bool isOfRSS = m_xml.prefix().isEmpty();
            if (name == u"link" && isOfRSS) {
                item.page = webAddress(text());
            } else if (name == u"description" && isOfRSS) {
                item.description = text();
            } else if (name == u"releaseNotesLink") {
                item.releaseNotes = webAddress(text());
            } else if (name == u"minimumSystemVersion") {
                item.minimumSystem = text();
            } else if (name == u"shortVersionString") {
                item.version = text();
            } else if (name == u"version") {
                build = text();
            } else if (name == u"enclosure") {
                readEnclosure(item, build);
            } else {
                m_xml.skipCurrentElement();
            }
        }
        if (item.version.isEmpty()) {
            item.version = build;
        }
        m_items.append(item);
    }

    void readEnclosure(AppcastItem& item, QString& build) {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        item.file = webAddress(attribute(attributes, u"url"));
        item.system = attribute(attributes, u"os").toLower();
        if (item.version.isEmpty()) {
            item.version = attribute(attributes, u"shortVersionString");
        }
        if (build.isEmpty()) {
            build = attribute(attributes, u"version");
        }
        m_xml.skipCurrentElement();
    }

    QString text() { return m_xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed(); }

    QXmlStreamReader m_xml;
    QList<AppcastItem> m_items;
};

bool suits(const AppcastItem& item, const UpdateSystem& system) {
    return (item.system.isEmpty() || item.system == system.name) &&
           (item.minimumSystem.isEmpty() || std::is_lteq(compareVersions(item.minimumSystem, system.version)));
}

}  // namespace

UpdateSystem UpdateSystem::current() {
#if defined(Q_OS_MACOS)
    return {QStringLiteral("macos"), QSysInfo::productVersion()};
#elif defined(Q_OS_WIN)
    return {QStringLiteral("windows"), QSysInfo::kernelVersion()};
#else
    // What follows the dash is the distribution's own count.
    return {QStringLiteral("linux"), QSysInfo::kernelVersion().section(u'-', 0, 0)};
#endif
}

std::optional<QList<AppcastItem>> parseAppcast(const QByteArray& feed) { return FeedReader(feed).read(); }

std::optional<AppcastItem> newestUpdate(const QList<AppcastItem>& items, const QString& version,
                                        const UpdateSystem& system) {
    const AppcastItem* newest = nullptr;
    for (const AppcastItem& item : items) {
        if (suits(item, system) && std::is_gt(compareVersions(item.version, newest ? newest->version : version))) {
            newest = &item;
        }
    }
    return newest ? std::optional(*newest) : std::nullopt;
}

}  // namespace corvale
