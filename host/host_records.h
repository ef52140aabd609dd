// The host's records that the panes read. Only the fields the panes use are
// named; the rest are the host's. The field order is fixed; on a 32-bit build
// the offsets are the documented ones, on a 64-bit build they grow with the
// pointer size.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/core/win_types.h"

class CBookMarkList;
class CBreakPointList;

struct ProjectContext {
    std::int32_t hostWords0[3] = {};
    CBookMarkList* bookMarkList = nullptr;      // 12: null means nothing to show
    CBreakPointList* breakPointList = nullptr;  // 16: null means nothing to show
    std::int32_t hostWord20 = 0;
    HWND debuggerWindow = nullptr;              // 24: the debugger service window
    std::int32_t hostWords28[8] = {};
    std::int32_t activeWatch = 0;               // 60: written by the watch pane
};

struct AppData {
    std::int32_t hostWords0[17] = {};
    ProjectContext* context = nullptr;          // 68: null while no project is open
};

static_assert(sizeof(void*) != 4 || offsetof(ProjectContext, bookMarkList) == 12);
static_assert(sizeof(void*) != 4 || offsetof(ProjectContext, breakPointList) == 16);
static_assert(sizeof(void*) != 4 || offsetof(ProjectContext, debuggerWindow) == 24);
static_assert(sizeof(void*) != 4 || offsetof(ProjectContext, activeWatch) == 60);
static_assert(sizeof(void*) != 4 || offsetof(AppData, context) == 68);
