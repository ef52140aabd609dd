// Text of a fixed-size field that a host may have filled to the brim: up to
// the first NUL or the end of the field, never past it.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

template <std::size_t N>
std::string_view FieldText(const char (&field)[N])
{
    return std::string_view(field, strnlen(field, N));
}
