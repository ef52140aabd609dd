#include "panes/dock_bar_brkpnt.h"

CDockBarBrkpnt::CDockBarBrkpnt() = default;

CDockBarBrkpnt::~CDockBarBrkpnt() = default;
