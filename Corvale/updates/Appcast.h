#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

namespace corvale {

// A version that a feed offers. Of the addresses, only those of the web are kept; the others are empty.
struct AppcastItem {
    QString version;        // as people read it: "1.4"
    QString description;    // what is new, in plain text or HTML; may be empty
    QUrl releaseNotes;      // may be empty
    QUrl file;              // the download itself, which only a browser ever fetches
    QUrl page;              // where a browser finds it: of the item, else of the feed, else the file
    QString system;         // "linux", "macos", "windows"; empty: any
    QString minimumSystem;  // the version that the system has at least; empty: any

    bool operator==(const AppcastItem&) const = default;
};

// The machine that an item has to suit.
struct UpdateSystem {
    QString name;     // as AppcastItem::system has it
    QString version;  // of the kernel on Linux, whose distributions count each in their own way

    static UpdateSystem current();
};

// The versions of an RSS 2.0 feed with one enclosure for each, in its order; those without a version or a page left
// out. None when it is no such feed.
std::optional<QList<AppcastItem>> parseAppcast(const QByteArray& feed);

// The newest that is newer than `version` and runs on the system.
std::optional<AppcastItem> newestUpdate(const QList<AppcastItem>& items, const QString& version,
                                        const UpdateSystem& system);

}  // namespace corvale
