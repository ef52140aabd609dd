#include "panes/dock_bar_workspace2.h"

CDockBarWorkspace2::CDockBarWorkspace2() = default;

CDockBarWorkspace2::~CDockBarWorkspace2() = default;
