#include "panes/dock_bar_search.h"

CDockBarSearch::CDockBarSearch()
{
    m_view.SetGotoMode(kGotoSendsGotoSource);
}

CDockBarSearch::~CDockBarSearch() = default;
