#pragma once

#include <functional>
#include <utility>

#include "tests/Corvale/model/PanelAnswers.h"
#include "tests/Corvale/platform/WatchedPlatform.h"

namespace corvale::TestSupport {

// The real platform with a user who answers panels at once.
class BusyQtPlatform : public WatchedPlatform {
public:
    using WatchedPlatform::WatchedPlatform;

    PanelAnswers answers;

    void showOpenPanel(const OpenPanel& /*panel*/, std::function<void(const QList<QUrl>&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), files = answers.files] { whenChosen(files); });
    }
    void showSavePanel(const SavePanel& /*panel*/, std::function<void(const QUrl&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), target = answers.target] { whenChosen(target); });
    }
};

}  // namespace corvale::TestSupport
