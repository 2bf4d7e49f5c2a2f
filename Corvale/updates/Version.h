#pragma once

#include <QStringView>
#include <compare>

namespace corvale {

// The order of version numbers: "1.10" comes after "1.9", "1.0" is "1.0.0", and what follows the numbers makes a
// version an earlier one than that without, as "2.0-beta2" is before "2.0" and after "2.0-beta1". Nothing is the first
// of all.
std::weak_ordering compareVersions(QStringView left, QStringView right);

}  // namespace corvale
