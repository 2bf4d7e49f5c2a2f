// How AppModel writes reports.

#include <QFileInfo>
#include <algorithm>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/FailureTexts.h"
#include "Corvale/model/ModelOperation.h"
#include "CorvaleKit/base/Failures.h"

namespace corvale {

namespace {

// On any thread. Throws UserFailure.
void refuseToReplace(const std::vector<QUrl>& files, const QUrl& target) {
    const QString path = QFileInfo(target.toLocalFile()).canonicalFilePath();
    const bool isOneOfThem = !path.isEmpty() && std::any_of(files.begin(), files.end(), [&path](const QUrl& file) {
        return QFileInfo(file.toLocalFile()).canonicalFilePath() == path;
    });
    if (isOneOfThem) {
        throw UserFailure(AppModel::tr("It would replace a file that is being compared.").toStdString());
    }
}

}  // namespace

void AppModel::exportReport(ReportKind kind) {
    const Operation operation(*this);
    if (!m_result || m_exporting || m_isChoosingTarget) {
        return;
    }
    m_isChoosingTarget = true;
    const Platform::SavePanel panel{ReportExport::defaultName(*m_result, kind), ReportExport::extension(kind)};
    // The result that the user saw when asking for it; a newer one may come while the panel is open. Whoever copies the
    // function shares the one reference to it.
    const auto asked = std::make_shared<std::shared_ptr<const DiffResult>>(m_result);
    m_platform.showSavePanel(
        panel, m_jobs.whileAlive(std::function([this, asked, kind, inUse = filesInUse()](const QUrl& url) {
            saveReport(std::exchange(*asked, nullptr), kind, url, inUse);
        })));
}

void AppModel::saveReport(std::shared_ptr<const DiffResult> result, ReportKind kind, const QUrl& url,
                          std::vector<QUrl> inUse) {
    const Operation operation(*this);
    m_isChoosingTarget = false;
    if (url.isEmpty()) {
        m_retired.push_back(std::move(result));
        return;
    }
    const std::vector<QUrl> inUseNow = filesInUse();
    inUse.insert(inUse.end(), inUseNow.begin(), inUseNow.end());
    set(m_exporting, true, &AppModel::exportingChanged);
    m_jobs.run(
        [&platform = m_platform,
         result = std::move(result),
         kind,
         url,
         inUse,
         language = m_platform.language(),
         includeUnchanged = m_settings.includeUnchangedInReports] {
            refuseToReplace(inUse, url);
            platform.writeFile(url, ReportExport::bytes(*result, kind, includeUnchanged, language));
            return true;
        },
        [this](Outcome<bool>& outcome) {
            const Operation delivery(*this);
            set(m_exporting, false, &AppModel::exportingChanged);
            if (outcome.failure) {
                tell(FailureTexts::ofExporting(outcome.failure));
            }
        });
}

std::vector<QUrl> AppModel::filesInUse() const {
    std::vector<QUrl> urls = m_pendingLoads.urls();
    for (const auto& file : m_files) {
        if (file) {
            urls.push_back(file->url);
        }
    }
    return urls;
}

}  // namespace corvale
