// Saving surfaces as PNG files (screenshots for tests and reviews) and
// reading them back.
#pragma once

#include "platform/core/win_types.h"

class Surface;

// Writes the part of the surface inside area (cut to the surface) as an RGB
// PNG. False when nothing is left of the area or the file cannot be written.
AFX_API bool WritePng(const Surface& surface, const CRect& area, const char* path);
AFX_API bool WritePng(const Surface& surface, const char* path);
// Reads any PNG into the surface (alpha is dropped). False, with the surface
// left as it was, when the file is missing or not a readable PNG.
AFX_API bool ReadPng(const char* path, Surface& surface);
