// Named screen points of the demo IDE, written for a script that drives the
// desktop window (clicks, drags) to find what it points at: one point a line,
// "name x y", read from the controls' geometry as the frame lies now. The
// frame sits at the screen's origin, so screen points are window points.
#pragma once

#include <filesystem>

class CIdeFrame;

// False when the file cannot be written.
bool WriteWindowPoints(CIdeFrame& ide, const std::filesystem::path& file);
