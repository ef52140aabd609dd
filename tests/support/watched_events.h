// Looking at the screen while a nested loop of the platform (an open popup
// menu, a message box) runs: the loop's events still come from the input
// layer's queue, and after each one the test's look runs.
#pragma once

#include <functional>

class WatchedEvents {
public:
    explicit WatchedEvents(std::function<void()> look);
    ~WatchedEvents();  // the input layer's queue is the plain source again
    WatchedEvents(const WatchedEvents&) = delete;
    WatchedEvents& operator=(const WatchedEvents&) = delete;

    // Events the nested loops took so far.
    int Taken() const;
};
