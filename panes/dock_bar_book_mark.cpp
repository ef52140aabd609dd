#include "panes/dock_bar_book_mark.h"

CDockBarBookMark::CDockBarBookMark() = default;

CDockBarBookMark::~CDockBarBookMark() = default;
