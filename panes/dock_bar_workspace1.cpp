#include "panes/dock_bar_workspace1.h"

CDockBarWorkspace1::CDockBarWorkspace1() = default;

CDockBarWorkspace1::~CDockBarWorkspace1() = default;
