// The sample program the simulated target runs: a traffic light that counts
// down each phase, switches red, green and yellow, logs each switch, keeps
// its uptime and lets a temperature reading drift.
#pragma once

class TargetMemory;

namespace Traffic {

// Puts the program's code tables and the values its start-up code leaves.
void Load(TargetMemory& memory);
// One pass of the main loop.
void Step(TargetMemory& memory);

}  // namespace Traffic
