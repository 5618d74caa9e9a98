#pragma once

#include <cstdint>

/// How often memory has been taken so far, by anything in this program.
std::int64_t Allocations();
