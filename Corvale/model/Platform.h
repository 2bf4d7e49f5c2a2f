#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/engine/DiffOptions.h"

namespace corvale {

// All that the model asks of the system. Functions are called on the main thread unless they say otherwise.
class Platform {
public:
    struct OpenPanel {
        QString message;
        bool allowsSeveral = false;
        QStringList extensions;  // lower case, without dots
    };
    struct SavePanel {
        QString defaultName;  // with extension
        QString extension;    // the one allowed type, without a dot
    };

    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
    // Waits for the background work that has begun; what has not is dropped, and nothing more is delivered.
    virtual ~Platform() = default;

    // Neither waits for the user: the answer comes later on the main thread, once, and empty when the panel was
    // dismissed. A panel that goes with its window gives none.
    virtual void showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) = 0;
    virtual void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) = 0;

    // The whole of a file. On any thread. Throws UserFailure.
    virtual Bytes readFile(const QUrl& url) = 0;
    // Replaces a file in one step: whatever happens, there is the old one or the whole new one. On any thread. Throws
    // UserFailure, whose text is the reason alone.
    virtual void writeFile(const QUrl& url, std::string_view bytes) = 0;

    // A blob that outlives the process; none when there is none or it cannot be read. Neither throws.
    virtual std::optional<std::string> storedData(const std::string& key) = 0;
    virtual void storeData(const std::string& key, std::string_view data) = 0;

    // Of the user's locale: an ISO 639 code such as "es", and dotDecimal or commaDecimal.
    virtual std::string language() const = 0;
    virtual NumberStyle numberStyle() const = 0;

    // Runs `work` on another thread and destroys it there. It does not throw.
    virtual void runInBackground(std::function<void()> work) = 0;
    // Runs `work` on the main thread soon, in the order of the calls. On any thread. It does not throw.
    virtual void runOnMain(std::function<void()> work) = 0;
};

}  // namespace corvale
