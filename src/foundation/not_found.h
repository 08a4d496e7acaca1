#pragma once

#include <limits>

/// The index that every lookup gives when it finds nothing: -2147483648, the smallest int.
/// Indices of offset containers may be negative, so that neither 0 nor -1 would serve.
inline constexpr int not_found = std::numeric_limits<int>::min();
