#pragma once

/// Marks what a library or module offers to others; everything else stays hidden inside it.
#define WARDLOCK_API __attribute__((visibility("default")))
