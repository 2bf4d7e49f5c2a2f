#pragma once

#include <QObject>
#include <QSettings>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Corvale/model/Platform.h"
#include "Corvale/platform/Workers.h"

class QFileDialog;

namespace corvale {

// The system as Qt knows it. Lives on the thread of the application object, which it needs; its panels belong to the
// window that is active.
class QtPlatform : public Platform {
public:
    // `settings` is the store of the data blobs.
    explicit QtPlatform(std::unique_ptr<QSettings> settings);

    void showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) override;
    void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) override;

    Bytes readFile(const QUrl& url) override;
    void writeFile(const QUrl& url, std::string_view bytes) override;

    std::optional<std::string> storedData(const std::string& key) override;
    void storeData(const std::string& key, std::string_view data) override;

    std::string language() const override;
    NumberStyle numberStyle() const override;

    void runInBackground(std::function<void()> work) override;
    void runOnMain(std::function<void()> work) override;

private:
    void show(QFileDialog* dialog, std::function<void(const QList<QUrl>&)> whenChosen);

    std::unique_ptr<QSettings> m_settings;
    QObject m_main;     // what is posted to it is delivered on its thread, or dies with it
    Workers m_workers;  // last, so that what has begun ends while the rest is there
};

}  // namespace corvale
