#pragma once

#include <cstddef>

// What changes the layout of the standard library's types has to be the same on both sides.
#if defined(VYR_INSTALLED) && (defined(_GLIBCXX_DEBUG) || _GLIBCXX_USE_CXX11_ABI == 0)
#error "the installed libvyrcore.so was built without _GLIBCXX_DEBUG and with C++11's std::string"
#endif

/// Marks what both sides of the library border must share. The project compiles with hidden
/// symbols, so type information and virtual tables of interfaces, exceptions and value types meet
/// across the border only where this stands.
#define VYR_EXPORT __attribute__((visibility("default")))
