// One line of output that the host sends a message view, by pointer, with
// UWM_MSGVIEW_APPEND or UWM_MSGVIEW_PREPEND. The view copies all of it during
// the call. A host includes this header.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/text/path_buffer.h"

struct MessageLineRecord {
    std::int32_t level;        // appended lines get 3 x level blanks before the text
    std::uint8_t reserved0[4];
    char text[512];            // GBK, ends with its own line break
    std::int32_t located;      // nonzero: file and line are valid
    char file[kPathBytes];     // GBK path of the source file
    std::int32_t line;         // handed to the host unchanged
    std::uint8_t reserved1[256];
};

static_assert(sizeof(MessageLineRecord) == 1040);
static_assert(offsetof(MessageLineRecord, text) == 8);
static_assert(offsetof(MessageLineRecord, located) == 520);
static_assert(offsetof(MessageLineRecord, file) == 524);
static_assert(offsetof(MessageLineRecord, line) == 780);
static_assert(offsetof(MessageLineRecord, reserved1) == 784);
