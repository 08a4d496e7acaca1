#pragma once

/// Under the sanitizers, which are ten times as slow, the longest loops take every `pace`th case.
/// It has no factor in common with what the loops themselves take turns by.
#ifdef LOMAR6_SANITIZED
constexpr int pace = 7;
#else
constexpr int pace = 1;
#endif
