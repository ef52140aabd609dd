#include "funclist/func_seek_items.h"

CFuncSeekItems::~CFuncSeekItems()
{
    ReleaseAllItems();
}

void CFuncSeekItems::ReleaseAllItems()
{
    for (int i = 0; i < GetSize(); ++i) delete ItemAt(i);
    SetSize(0);
}
