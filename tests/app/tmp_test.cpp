#include <gtest/gtest.h>

#include "data/values.h"

TEST(Placeholder, Builds) { EXPECT_EQ(tallix::amountToText(7), "7.00"); }
