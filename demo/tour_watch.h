// The watch part of the tour: expressions typed (one of them wrong),
// structures and arrays expanded, a value written, formats changed, a row
// dragged, the target run, memory shown and the debugger's own list.
#pragma once

class CIdeFrame;
class TourRecord;

void PlayWatchTour(CIdeFrame& ide, TourRecord& record);
