// Tests that start from the lower layer on fakes.
#pragma once

#include "tests/support/core_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {

struct CoreTest : testing::Test, CoreFixture {};

} // namespace vk::test
