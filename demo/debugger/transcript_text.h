// How the service's transcript lines name things, in UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "watch/debug_protocol.h"

std::string TypeName(std::uint32_t type);
std::string SpaceName(std::uint32_t space);
// "unsigned char in data at 0x0030 = 0x2", "int value 0xFFFB", "error 52066".
std::string RecordText(const WatchRecord& record);
// A GBK text quoted, in UTF-8, cut after a few dozen bytes.
std::string QuotedText(std::string_view gbk);
