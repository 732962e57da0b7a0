#pragma once

/// Marks what both sides of the library border must share. The project compiles with hidden
/// symbols, so type information and virtual tables of interfaces, exceptions and value types meet
/// across the border only where this stands.
#define VYR_EXPORT __attribute__((visibility("default")))
