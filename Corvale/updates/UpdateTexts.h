#pragma once

#include <QCoreApplication>
#include <QString>

namespace corvale {

// How the program calls itself.
struct ProgramIdentity {
    QString displayName;
    QString version;

    // Of the running application.
    static ProgramIdentity current();
};

// What more than one of the update checks says.
class UpdateTexts {
    Q_DECLARE_TR_FUNCTIONS(UpdateTexts)

public:
    static QString upToDateTitle();
    static QString upToDate(const ProgramIdentity& program);
    static QString couldNotCheckTitle();
    static QString couldNotCheck(const ProgramIdentity& program);
};

}  // namespace corvale
