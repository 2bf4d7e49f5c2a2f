#include "Corvale/window/Wording.h"

#include <QCoreApplication>
#include <QLocale>

namespace corvale::Wording {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Wording)
};

constexpr qsizetype longestMenuText = 60;

bool breaksLine(QChar character) {
    switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            return false;
    }
}

QString counted(std::int64_t number, const QString& one, const QString& several) {
    return (number == 1 ? one : several).arg(count(number));
}

}  // namespace

QString count(std::int64_t number) { return QLocale().toString(static_cast<qlonglong>(number)); }

QString oneLine(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& character : line) {
        if (breaksLine(character)) {
            character = u' ';
        }
    }
    return line;
}

QString menuText(std::string_view text) {
    QString line = oneLine(text);
    if (line.size() <= longestMenuText) {
        return line;
    }
    // Both ends, as names of one kind often differ in the last words. Halves of a surrogate pair stay together.
    qsizetype headEnd = longestMenuText / 2;
    headEnd -= line[headEnd - 1].isHighSurrogate() ? 1 : 0;
    qsizetype tail = line.size() - longestMenuText / 2 + 1;
    tail += line[tail].isLowSurrogate() ? 1 : 0;
    return line.first(headEnd) + u'…' + line.sliced(tail);
}

QString tableSize(const DataTable& table) {
    const auto rows = static_cast<std::int64_t>(table.rows().size());
    const auto columns = static_cast<std::int64_t>(table.headers().size());
    return Texts::tr("%1 · %2").arg(counted(rows, Texts::tr("%1 row"), Texts::tr("%1 rows")),
                                    counted(columns, Texts::tr("%1 column"), Texts::tr("%1 columns")));
}

QString side(Side side) { return side == Side::before ? Texts::tr("Before") : Texts::tr("After"); }

QString show(DiffFilter::Show show) {
    switch (show) {
        case DiffFilter::Show::all:
            return Texts::tr("All Rows");
        case DiffFilter::Show::changes:
            return Texts::tr("Only Changes");
        case DiffFilter::Show::added:
            return Texts::tr("Added");
        case DiffFilter::Show::removed:
            return Texts::tr("Removed");
        case DiffFilter::Show::changed:
            return Texts::tr("Changed");
    }
    Q_UNREACHABLE();
}

QString numberStyle(NumberStyle style) {
    switch (style) {
        case NumberStyle::automatic:
            return Texts::tr("Numbers: automatic");
        case NumberStyle::dotDecimal:
            return Texts::tr("Numbers like 1,234.56");
        case NumberStyle::commaDecimal:
            return Texts::tr("Numbers like 1.234,56");
    }
    Q_UNREACHABLE();
}

}  // namespace corvale::Wording
