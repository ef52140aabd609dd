// Why an expression has no value: one of the watch's message ids (WERR_*).
// Thrown inside the evaluator and caught where the request is answered.
#pragma once

#include <cstdint>

struct EvaluationError {
    std::uint32_t id = 0;
};

[[noreturn]] inline void Fail(std::uint32_t id)
{
    throw EvaluationError{id};
}
