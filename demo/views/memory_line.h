// The text of one line of a memory view: where the line lies in its space
// and the bytes read there, as
//     X:0110  00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF  ."3DUfw........
// The prefix is the space's letter and the address in as many hex digits as
// the space needs; unreadable bytes show "??" and a blank in the ASCII part.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

// A memory space a view can show: its letter and its extent. A bit space
// holds one byte (0 or 1) per bit.
struct MemorySpace {
    char letter = '?';
    std::uint32_t size = 0;  // bytes
    int addressDigits = 4;
};

constexpr int kMemoryBytesPerLine = 16;
// A byte value for one that could not be read.
constexpr int kUnreadableByte = -1;

// The space a WatchSpace code names, or nothing for a space the view does
// not show.
std::optional<MemorySpace> MemorySpaceOf(std::uint32_t space);

// bytes: the values of the line's first bytes (kUnreadableByte for one that
// could not be read); at most kMemoryBytesPerLine are used, and columns of
// bytes not given are left blank.
std::string FormatMemoryLine(const MemorySpace& space, std::uint32_t lineAddress, std::span<const int> bytes);

// Columns (characters from the line's start) of byte `index`'s two hex
// digits and of its ASCII character.
int MemoryHexColumn(const MemorySpace& space, int index);
int MemoryAsciiColumn(const MemorySpace& space, int index);
