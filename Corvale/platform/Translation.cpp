#include "Corvale/platform/Translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace corvale {

// Never by a list of languages, as QTranslator offers: for "English, else Spanish" it would find Spanish, since English
// has no file.
Translation::Translation(const std::string& language) {
    const QString code = QString::fromStdString(language);
    if (m_own.load(QStringLiteral(":/corvale/translations/corvale_%1.qm").arg(code))) {
        QCoreApplication::installTranslator(&m_own);
        if (m_qts.load(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QCoreApplication::installTranslator(&m_qts);
        }
    }
}

}  // namespace corvale
