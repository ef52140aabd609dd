// The size of every path buffer the panes, their host and the sibling
// modules exchange: up to 255 bytes of GBK and a terminator.
#pragma once

constexpr int kPathBytes = 256;
