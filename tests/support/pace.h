#pragma once

/// Under the sanitizers, which are ten times as slow, the longest loops take every `pace`th case.
#ifdef LOMAR6_SANITIZED
constexpr int pace = 8;
#else
constexpr int pace = 1;
#endif
