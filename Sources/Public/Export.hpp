#pragma once

#if __cplusplus < 202100L
#error "Rellinor needs C++23: compile with -std=c++23, or target_compile_features(… cxx_std_23)"
#endif

/// Marks what the library lets be seen from outside; everything else is hidden.
#define RELLINOR_PUBLIC [[gnu::visibility("default")]]
