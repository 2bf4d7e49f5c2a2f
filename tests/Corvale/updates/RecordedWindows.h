#pragma once

#include <QStringList>
#include <utility>

#include "Corvale/updates/UpdateWindows.h"

namespace corvale::TestSupport {

// Keeps what the user would see, for a test to look at and to answer.
class RecordedWindows : public UpdateWindows {
public:
    void tell(const QString& title, const QString& message) override {
        told.append(title + QStringLiteral(": ") + message);
    }
    void askForConsent(std::function<void(bool)> answer) override { questions.append(std::move(answer)); }
    void offer(const AppcastItem& item, std::function<void()> open) override {
        offered.append(item.version);
        opens.append(std::move(open));
    }
    void browse(const QUrl& page) override { browsed.append(page); }

    QStringList told;
    QStringList offered;  // versions
    QList<std::function<void(bool)>> questions;
    QList<std::function<void()>> opens;
    QList<QUrl> browsed;
};

}  // namespace corvale::TestSupport
