// The demo IDE's scripted tour: what a new user would do in a first session,
// played through simulated input and host messages only, with screenshots
// along the way.
#pragma once

class CIdeFrame;
class TourRecord;

// Plays the whole tour; false when a step could not find what it points at.
bool PlayTour(CIdeFrame& ide, TourRecord& record);
