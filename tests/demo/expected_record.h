// Tables of expressions and the records they must evaluate to.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

class ServiceDriver;

struct ExpectedRecord {
    const char* text;
    std::uint32_t type;
    std::uint32_t space;
    std::uint32_t address;
    std::uint32_t size;
    std::uint32_t value;
};

// Each text evaluates, readably, to a record with those fields.
void ExpectRecords(ServiceDriver& driver, std::span<const ExpectedRecord> cases);
void ExpectRecords(ServiceDriver& driver, std::initializer_list<ExpectedRecord> cases);
