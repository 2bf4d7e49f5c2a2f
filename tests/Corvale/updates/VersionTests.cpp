#include <gtest/gtest.h>

#include <QString>
#include <vector>

#include "Corvale/updates/Version.h"

namespace corvale {
namespace {

TEST(Version, ComesAfterAllOfThoseBeforeIt) {
    const std::vector<QString> inOrder = {
        QString(),
        QStringLiteral("nightly"),
        QStringLiteral("0.9"),
        QStringLiteral("0.10"),
        QStringLiteral("1.0-alpha"),
        QStringLiteral("1.0-beta2"),
        QStringLiteral("1.0-beta10"),
        QStringLiteral("1.0"),
        QStringLiteral("1.0.1"),
        QStringLiteral("1.9.9"),
        QStringLiteral("1.10"),
        QStringLiteral("2026.11"),
        QStringLiteral("99999999999999999999.1"),
        QStringLiteral("99999999999999999999.2"),
    };
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        for (std::size_t j = 0; j < inOrder.size(); ++j) {
            EXPECT_EQ(compareVersions(inOrder[i], inOrder[j]), i <=> j)
                << inOrder[i].toStdString() << " and " << inOrder[j].toStdString();
        }
    }
}

TEST(Version, IsTheSameHoweverItIsWritten) {
    for (const QStringView other : {u"1", u"1.0", u"01.0", u"v1.0.0", u" 1.0.0 ", u"1.0+build7", u"V1.00"}) {
        EXPECT_EQ(compareVersions(u"1.0", other), std::weak_ordering::equivalent) << other.toString().toStdString();
    }
    EXPECT_EQ(compareVersions(u"1.0-RC1", u"1.0-rc01"), std::weak_ordering::equivalent);
}

}  // namespace
}  // namespace corvale
