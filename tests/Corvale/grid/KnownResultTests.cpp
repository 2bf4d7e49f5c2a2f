#include <gtest/gtest.h>

#include <memory>

#include "Corvale/grid/KnownResult.h"

namespace corvale {
namespace {

TEST(KnownResult, IsNoneAtFirst) {
    KnownResult known;
    EXPECT_FALSE(known.take(nullptr));
    EXPECT_TRUE(known.is(std::shared_ptr<const DiffResult>()));
}

TEST(KnownResult, IsTheOneTakenLast) {
    const auto first = std::make_shared<const DiffResult>();
    const auto equal = std::make_shared<const DiffResult>();
    KnownResult known;
    EXPECT_TRUE(known.take(first));
    EXPECT_FALSE(known.take(first));
    EXPECT_TRUE(known.is(first));
    EXPECT_FALSE(known.is(equal));
    EXPECT_TRUE(known.take(equal));
    EXPECT_FALSE(known.is(first));
    EXPECT_TRUE(known.take(nullptr));
}

TEST(KnownResult, IsNotMistakenForALaterOneOnceItIsGone) {
    auto result = std::make_shared<const DiffResult>();
    KnownResult known;
    known.take(result);
    const std::weak_ptr<const DiffResult> gone = result;
    result.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_TRUE(known.is(gone));
    EXPECT_TRUE(known.take(std::make_shared<const DiffResult>()));
}

}  // namespace
}  // namespace corvale
