#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace corvale::TestSupport {

// Takes the addresses that would go to a browser or a mail program.
class UrlSink : public QObject {
    Q_OBJECT

public:
    UrlSink() {
        for (const QString& scheme : schemes()) {
            QDesktopServices::setUrlHandler(scheme, this, "take");
        }
    }
    ~UrlSink() override {
        for (const QString& scheme : schemes()) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }
    UrlSink(const UrlSink&) = delete;
    UrlSink& operator=(const UrlSink&) = delete;

    int taken() const { return m_taken; }

public Q_SLOTS:
    void take(const QUrl& /*url*/) { ++m_taken; }

private:
    static QStringList schemes() {
        return {QStringLiteral("mailto"), QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("file")};
    }

    int m_taken = 0;
};

}  // namespace corvale::TestSupport
