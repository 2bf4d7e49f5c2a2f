#include "tests/Corvale/model/ScriptedPlatform.h"

#include <utility>

#include "CorvaleKit/base/Failures.h"

namespace corvale::TestSupport {

QUrl ScriptedPlatform::url(const std::string& name) {
    return name.empty() ? QUrl() : QUrl::fromLocalFile(QStringLiteral("/") + QString::fromStdString(name));
}

void ScriptedPlatform::chooseFiles(const std::vector<std::string>& names) {
    QList<QUrl> urls;
    for (const std::string& name : names) {
        urls.append(url(name));
    }
    std::exchange(m_whenFilesChosen, nullptr)(urls);
}

// Like a dialog that is closed before it is destroyed, it keeps the function until the next panel.
void ScriptedPlatform::chooseTarget(const std::string& name) { m_whenTargetChosen(url(name)); }

void ScriptedPlatform::work(std::size_t place) {
    const std::function<void()> work = std::move(m_background.at(place));
    m_background.erase(m_background.begin() + static_cast<std::ptrdiff_t>(place));
    work();
}

void ScriptedPlatform::deliver() {
    for (std::size_t left = m_main.size(); left > 0; --left) {
        const std::function<void()> work = std::move(m_main.front());
        m_main.pop_front();
        work();
    }
}

void ScriptedPlatform::settle() {
    while (!m_background.empty() || !m_main.empty()) {
        if (!m_background.empty()) {
            work();
        }
        deliver();
    }
}

void ScriptedPlatform::showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) {
    openPanels.push_back(panel);
    m_whenFilesChosen = std::move(whenChosen);
}

void ScriptedPlatform::showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) {
    savePanels.push_back(panel);
    m_whenTargetChosen = std::move(whenChosen);
}

Bytes ScriptedPlatform::readFile(const QUrl& url) {
    ++reads;
    const std::string name = url.fileName().toStdString();
    const auto found = files.find(name);
    if (found == files.end()) {
        throw UserFailure("“" + name + "” couldn’t be opened: No such file or directory");
    }
    return Bytes(found->second);
}

void ScriptedPlatform::writeFile(const QUrl& url, std::string_view bytes) {
    if (writeFailure) {
        throw UserFailure(*writeFailure);
    }
    files[url.fileName().toStdString()] = bytes;
}

std::optional<std::string> ScriptedPlatform::storedData(const std::string& key) {
    const auto found = stored.find(key);
    return found == stored.end() ? std::nullopt : std::optional(found->second);
}

void ScriptedPlatform::storeData(const std::string& key, std::string_view data) {
    ++stores;
    stored[key] = data;
}

void ScriptedPlatform::runOnMain(std::function<void()> work) {
    m_main.push_back(std::move(work));
    if (whenPosted) {
        whenPosted();
    }
}

}  // namespace corvale::TestSupport
