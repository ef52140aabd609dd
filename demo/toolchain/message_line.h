// Building one record for a message view (output/message_line_record.h).
#pragma once

#include <string_view>

#include "output/message_line_record.h"

// The text gets its line break; a located line names the file's full path and line.
MessageLineRecord MessageLine(int level, std::string_view gbkText, std::string_view path = {}, int line = 0);
