// The watch part of the demo's scripted tour: the host restores the project's
// watch list, the user adds, expands, re-formats, moves and inspects rows,
// the target runs and the host refreshes.
#pragma once

#include <functional>
#include <string>

#include "watch/watch_grid_ctrl.h"

struct WatchSessionHooks {
    std::function<void(const std::string& utf8)> note;  // a step of the tour
    std::function<void()> runTarget;                    // the target runs a step
    std::function<std::string()> memoryView;            // what the memory view shows (UTF-8)
    std::function<void(const std::string& utf8)> log;   // a line of the transcript
};

// The expressions the project saved, sent as the host restores them.
void RestoreWatchList(CWatchGridCtrl& watch, const std::function<void(const std::string&)>& note);
// Leaves a structure expanded, one row in each display format, an error
// text, changed values and the cell cursor on a value, for the capture.
void PlayWatchSession(CWatchGridCtrl& watch, const WatchSessionHooks& hooks);
