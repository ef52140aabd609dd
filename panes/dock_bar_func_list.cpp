#include "panes/dock_bar_func_list.h"

CDockBarFuncList::CDockBarFuncList() = default;

CDockBarFuncList::~CDockBarFuncList() = default;
