// How AppModel writes reports.

#include <QFileInfo>

#include <algorithm>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/FailureTexts.h"
#include "Corvale/model/ModelOperation.h"
#include "CorvaleKit/base/Failures.h"

namespace corvale {

void AppModel::exportReport(ReportKind kind) {
    const Operation operation(*this);
    if (!m_result || m_exporting) {
        return;
    }
    const Platform::SavePanel panel{ReportExport::defaultName(*m_result, kind), ReportExport::extension(kind)};
    // The result that the user saw when asking for it; a newer one may come while the panel is open.
    m_platform.showSavePanel(panel, m_jobs.whileAlive(std::function([this, result = m_result, kind](const QUrl& url) {
                                 saveReport(result, kind, url);
                             })));
}

void AppModel::saveReport(const std::shared_ptr<const DiffResult>& result, ReportKind kind, const QUrl& url) {
    const Operation operation(*this);
    if (url.isEmpty() || m_exporting) {
        return;
    }
    if (isComparedFile(url)) {
        const UserFailure failure(tr("It would replace a file that is being compared.").toStdString());
        set(m_problem, std::optional(FailureTexts::ofExporting(std::make_exception_ptr(failure))),
            &AppModel::problemChanged);
        return;
    }
    set(m_exporting, true, &AppModel::exportingChanged);
    m_jobs.run(
        [&platform = m_platform, result, kind, url, language = m_platform.language(),
         includeUnchanged = m_settings.includeUnchangedInReports] {
            platform.writeFile(url, ReportExport::bytes(*result, kind, includeUnchanged, language));
            return true;
        },
        [this](Outcome<bool>& outcome) {
            const Operation delivery(*this);
            set(m_exporting, false, &AppModel::exportingChanged);
            if (outcome.failure) {
                set(m_problem, std::optional(FailureTexts::ofExporting(outcome.failure)), &AppModel::problemChanged);
            }
        });
}

bool AppModel::isComparedFile(const QUrl& url) const {
    const QString path = QFileInfo(url.toLocalFile()).canonicalFilePath();
    return !path.isEmpty() && std::any_of(m_files.begin(), m_files.end(), [&path](const auto& file) {
        return file && QFileInfo(file->url.toLocalFile()).canonicalFilePath() == path;
    });
}

}  // namespace corvale
