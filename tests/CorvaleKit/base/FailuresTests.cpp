#include <gtest/gtest.h>

#include <type_traits>

#include "CorvaleKit/base/Failures.h"

namespace corvale {
namespace {

static_assert(!std::is_base_of_v<UserFailure, Cancelled>, "a cancelled job shows nothing");
static_assert(!std::is_base_of_v<UserFailure, DecodingError>, "a stored form is nothing the user can mend");

TEST(UserFailure, ItsMessageIsTheWholeSentence) {
    const UserFailure failure("“a.csv” is empty.");
    EXPECT_EQ(failure.message(), "“a.csv” is empty.");
    EXPECT_STREQ(failure.what(), "“a.csv” is empty.");
}

}  // namespace
}  // namespace corvale
