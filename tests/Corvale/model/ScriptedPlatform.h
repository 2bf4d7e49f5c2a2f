#pragma once

#include <QList>
#include <QUrl>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Corvale/model/Platform.h"

namespace corvale::TestSupport {

// A system in memory whose background work runs when the test says so, in the order that the test wants. All on one
// thread.
class ScriptedPlatform : public Platform {
public:
    // Files by name, under file:///. Reading one that is not here fails with "“NAME” couldn’t be opened: No such file
    // or directory".
    std::map<std::string, std::string> files;
    std::map<std::string, std::string> stored;
    std::string languageCode = "en";
    NumberStyle decimalStyle = NumberStyle::dotDecimal;
    // Writing fails with this reason.
    std::optional<std::string> writeFailure;
    // Called after each post to the main thread, in the middle of the work that posts.
    std::function<void()> whenPosted;

    // What was asked for so far.
    int reads = 0;
    int stores = 0;
    std::vector<OpenPanel> openPanels;
    std::vector<SavePanel> savePanels;

    static QUrl url(const std::string& name);

    // Answer the panel that was opened last.
    void chooseFiles(const std::vector<std::string>& names);
    // An empty name dismisses the panel.
    void chooseTarget(const std::string& name);

    // Background work that was asked for and did not run, oldest first.
    std::size_t waiting() const { return m_background.size(); }
    // Runs one of them, by its place among those waiting, without delivering anything.
    void work(std::size_t place = 0);
    // What was posted to the main thread and not delivered.
    std::size_t posted() const { return m_main.size(); }
    // Delivers what was posted to the main thread so far.
    void deliver();
    // Works and delivers until nothing is left to do.
    void settle();

    void showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) override;
    void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) override;
    Bytes readFile(const QUrl& url) override;
    void writeFile(const QUrl& url, std::string_view bytes) override;
    std::optional<std::string> storedData(const std::string& key) override;
    void storeData(const std::string& key, std::string_view data) override;
    std::string language() const override { return languageCode; }
    NumberStyle numberStyle() const override { return decimalStyle; }
    void runInBackground(std::function<void()> work) override { m_background.push_back(std::move(work)); }
    void runOnMain(std::function<void()> work) override;

private:
    std::deque<std::function<void()>> m_background;
    std::deque<std::function<void()>> m_main;
    std::function<void(const QList<QUrl>&)> m_whenFilesChosen;
    std::function<void(const QUrl&)> m_whenTargetChosen;
};

}  // namespace corvale::TestSupport
