// Icon files as icon resources hold them: ICONDIR, one ICONDIRENTRY per
// image, then each image as a DIB followed by its AND mask (see dib.h).
// Cursor files share the layout and are read the same way.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/gdi/dib.h"

namespace gdi {

struct IconDirEntry {
    int width = 0;   // 0 in the file means 256
    int height = 0;
    int bitCount = 0;
    size_t offset = 0;  // of the image, from the start of the file
    size_t size = 0;
    // Whether the image lies inside the file, after the directory.
    bool inFile = false;
};

// The directory in file order; false when the header is wrong, there are
// no entries or the directory itself is cut off.
AFX_API bool ReadIconDirectory(const unsigned char* data, size_t size, std::vector<IconDirEntry>& entries);

// Every image of the file in directory order, each with its mask. False when
// an entry points outside the file, an image cannot be decoded or differs in
// size from its entry, or the images together have more pixels than 64 of
// the largest size (entries may share their bytes).
AFX_API bool DecodeIconFile(const unsigned char* data, size_t size, std::vector<DibImage>& images);

}  // namespace gdi
