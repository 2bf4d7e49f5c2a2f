#include "Corvale/model/FailureTexts.h"

#include <QCoreApplication>
#include <new>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataLoader.h"

namespace corvale::FailureTexts {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FailureTexts)
};

// The failures of the loader that the window words by itself; none for the others.
QString ownText(const DataLoader::Failure& failure) {
    const QString name = QString::fromStdString(failure.fileName());
    switch (failure.kind()) {
        case DataLoader::Failure::Kind::notSpreadsheet:
            return Texts::tr("“%1” doesn’t look like a CSV or Excel file.").arg(name);
        case DataLoader::Failure::Kind::emptySheet:
            return Texts::tr("That sheet is empty. Pick another sheet from the menu under the file name.");
        case DataLoader::Failure::Kind::oldExcel:
            return Texts::tr(
                       "“%1” is an older Excel file (.xls). Open it in Excel or Numbers, save it as .xlsx or "
                       "CSV, then open that here.")
                .arg(name);
        case DataLoader::Failure::Kind::numbersFile:
            return Texts::tr(
                       "“%1” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then "
                       "open the exported file here.")
                .arg(name);
        case DataLoader::Failure::Kind::empty:
            return Texts::tr("“%1” is empty.").arg(name);
    }
    return QString::fromStdString(failure.message());
}

// The failure's own words, or `noMemory` when memory ran out.
QString description(const std::exception_ptr& failure, const QString& noMemory) {
    try {
        std::rethrow_exception(failure);
    } catch (const DataLoader::Failure& loading) {
        return ownText(loading);
    } catch (const std::bad_alloc&) {
        return noMemory;
    } catch (const std::exception& other) {
        return QString::fromUtf8(other.what());
    }
}

}  // namespace

QString ofLoading(const std::exception_ptr& failure) {
    return description(failure, Texts::tr("There isn’t enough memory to open this file."));
}

QString ofExporting(const std::exception_ptr& failure) {
    return Texts::tr("The report couldn’t be saved: %1")
        .arg(description(failure, Texts::tr("There isn’t enough memory.")));
}

QString ofComparing(const std::exception_ptr& failure) {
    return description(failure, Texts::tr("There isn’t enough memory to compare these files."));
}

}  // namespace corvale::FailureTexts
