// A line written to stderr when the process dies under a long random run (a
// signal, or a sanitizer's report), so that the run can be replayed: which
// seed, which step, what that step did. Set once, then updated every step.
#pragma once

#include <cstdint>

namespace CrashNote {

// Installs the handlers. The seed goes into the note, and the text `action`
// points to when the process dies (it must outlive the run).
void Install(std::uint32_t seed, const char* const& action);
// The step now playing.
void At(long step);
// The run is over: a note now says so rather than read the action.
void Forget();

}  // namespace CrashNote
