#include "Corvale/model/ReportExport.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "CorvaleKit/reports/ReportStrings.h"
#include "CorvaleKit/reports/Reports.h"

namespace corvale::ReportExport {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ReportExport)
};

QString withoutExtension(const QString& name) {
    const QString base = QFileInfo(name).completeBaseName();
    return base.isEmpty() ? name : base;
}

}  // namespace

QString extension(ReportKind kind) {
    return kind == ReportKind::excel ? QStringLiteral("xlsx") : QStringLiteral("html");
}

QString defaultName(const DiffResult& result, ReportKind kind) {
    const QString name = withoutExtension(QString::fromStdString(result.after.sourceName()));
    return Texts::tr("%1 changes", "name of a report; %1 is a file's name").arg(name) + u'.' + extension(kind);
}

std::string bytes(const DiffResult& result, ReportKind kind, bool includeUnchanged, std::string_view language) {
    const bool spanish = language == "es";
    const ReportStrings strings = spanish ? ReportStrings::spanish() : ReportStrings();
    return kind == ReportKind::excel ? Reports::excelReport(result, strings, includeUnchanged)
                                     : Reports::htmlReport(result, strings, spanish ? "es" : "en");
}

}  // namespace corvale::ReportExport
