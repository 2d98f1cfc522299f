#pragma once

#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/SimulatedUser.h"

#include <gtest/gtest.h>

// A desk for dialogs without pixels: a host with every default, a headless face and a simulated user whose faults fail
// the test.
struct HeadlessTest : ::testing::Test {
    tv::host::EmbeddedHost host;
    tv::ui::HeadlessToolkit toolkit;
    tv::ui::SimulatedUser user{toolkit, [](const std::string& message) { ADD_FAILURE() << message; }};
};
