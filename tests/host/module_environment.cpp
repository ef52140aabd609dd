// Loads the panes module once for the whole test program, as a host loads it,
// so that its resources join the framework's chain.
#include <gtest/gtest.h>

#include "platform/core/module.h"

namespace {

class ModuleEnvironment : public ::testing::Environment {
public:
    void SetUp() override
    {
        module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
        ASSERT_NE(module, nullptr) << AfxLastLoadError();
    }
    void TearDown() override { AfxFreeLibrary(module); }

private:
    HINSTANCE module = nullptr;
};

const auto* const g_environment = ::testing::AddGlobalTestEnvironment(new ModuleEnvironment);

}  // namespace
