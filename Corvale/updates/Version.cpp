#include "Corvale/updates/Version.h"

#include <QList>
#include <algorithm>

namespace corvale {

namespace {

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

qsizetype lengthOfRun(QStringView text, bool ofDigits) {
    const auto* const end =
        std::find_if(text.begin(), text.end(), [ofDigits](QChar c) { return isDigit(c) != ofDigits; });
    return end - text.begin();
}

QStringView withoutZeros(QStringView digits) {
    while (digits.startsWith(u'0')) {
        digits = digits.sliced(1);
    }
    return digits;
}

std::weak_ordering order(int comparison) { return comparison <=> 0; }

// Of any length: no number of a version is too long for it.
std::weak_ordering compareNumbers(QStringView left, QStringView right) {
    left = withoutZeros(left);
    right = withoutZeros(right);
    return left.size() != right.size() ? std::weak_ordering(left.size() <=> right.size()) : order(left.compare(right));
}

struct Parts {
    QList<QStringView> numbers;
    QStringView rest;
};

Parts partsOf(QStringView version) {
    version = version.trimmed();
    if (version.startsWith(u'v', Qt::CaseInsensitive)) {
        version = version.sliced(1);
    }
    Parts parts;
    while (!version.isEmpty() && isDigit(version.front())) {
        const qsizetype length = lengthOfRun(version, true);
        parts.numbers.append(version.first(length));
        version = version.sliced(length);
        if (version.size() < 2 || version[0] != u'.' || !isDigit(version[1])) {
            break;
        }
        version = version.sliced(1);
    }
    // What a plus sign begins is the build, which orders nothing (Semantic Versioning 2.0.0, 10).
    parts.rest = version.first(version.indexOf(u'+') < 0 ? version.size() : version.indexOf(u'+'));
    return parts;
}

std::weak_ordering compareRests(QStringView left, QStringView right) {
    if (left.isEmpty() || right.isEmpty()) {
        return left.isEmpty() <=> right.isEmpty();
    }
    while (!left.isEmpty() && !right.isEmpty()) {
        const bool areNumbers = isDigit(left.front()) && isDigit(right.front());
        const qsizetype leftLength = lengthOfRun(left, areNumbers);
        const qsizetype rightLength = lengthOfRun(right, areNumbers);
        const auto ordering =
            areNumbers ? compareNumbers(left.first(leftLength), right.first(rightLength))
                       : order(left.first(leftLength).compare(right.first(rightLength), Qt::CaseInsensitive));
        if (std::is_neq(ordering)) {
            return ordering;
        }
        left = left.sliced(leftLength);
        right = right.sliced(rightLength);
    }
    return left.size() <=> right.size();
}

}  // namespace

std::weak_ordering compareVersions(QStringView left, QStringView right) {
    if (left.trimmed().isEmpty() || right.trimmed().isEmpty()) {
        return right.trimmed().isEmpty() <=> left.trimmed().isEmpty();
    }
    const Parts ofLeft = partsOf(left);
    const Parts ofRight = partsOf(right);
    for (qsizetype i = 0; i < std::max(ofLeft.numbers.size(), ofRight.numbers.size()); ++i) {
        const auto ordering = compareNumbers(ofLeft.numbers.value(i), ofRight.numbers.value(i));
        if (std::is_neq(ordering)) {
            return ordering;
        }
    }
    if (ofLeft.numbers.isEmpty() != ofRight.numbers.isEmpty()) {
        return ofRight.numbers.isEmpty() <=> ofLeft.numbers.isEmpty();
    }
    return compareRests(ofLeft.rest, ofRight.rest);
}

}  // namespace corvale
