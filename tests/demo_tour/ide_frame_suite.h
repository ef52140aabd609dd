// What a test of the demo IDE's frame starts from: one application object,
// the panes module loaded as the demo loads it, and the sample project, made
// once for the suite; and a frame over that project for each test.
#pragma once

#include <gtest/gtest.h>

#include "demo/ide_frame.h"
#include "demo/sample_project.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"

class IdeFrameSuite : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_app = new CWinApp("ide frame test");
        s_module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
        s_project = new SampleProject(DEMO_SAMPLE_DIR);
    }
    static void TearDownTestSuite()
    {
        delete s_project;
        if (s_module) AfxFreeLibrary(s_module);
        delete s_app;
    }

    static inline CWinApp* s_app = nullptr;
    static inline HINSTANCE s_module = nullptr;
    static inline SampleProject* s_project = nullptr;
    CIdeFrame ide{*s_project};
};
