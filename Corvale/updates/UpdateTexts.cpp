#include "Corvale/updates/UpdateTexts.h"

#include <QGuiApplication>

namespace corvale {

ProgramIdentity ProgramIdentity::current() {
    const QString displayName = QGuiApplication::applicationDisplayName();
    return {.displayName = displayName.isEmpty() ? QCoreApplication::applicationName() : displayName,
            .version = QCoreApplication::applicationVersion()};
}

QString UpdateTexts::upToDateTitle() { return tr("You’re up to date"); }

QString UpdateTexts::upToDate(const ProgramIdentity& program) {
    return tr("%1 %2 is the newest version. %1 checks for updates on its own and will let you know when there’s a new "
              "one.")
        .arg(program.displayName, program.version);
}

QString UpdateTexts::couldNotCheckTitle() { return tr("Couldn’t check for updates"); }

QString UpdateTexts::couldNotCheck(const ProgramIdentity& program) {
    return tr("Check your internet connection and try again. %1 also checks on its own about once a day.")
        .arg(program.displayName);
}

}  // namespace corvale
