#include <gtest/gtest.h>

#include "support/module_host.h"

TEST(CreateFunction, ServesBothComponents) {
    const LoadedModule& module = LoadModule("Calendar");
    EXPECT_NE(module.Factory(L"Time"), nullptr);
    EXPECT_NE(module.Factory(L"DblBuffer"), nullptr);
    EXPECT_EQ(module.Factory(L"time"), nullptr);
}
