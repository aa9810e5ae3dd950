#pragma once

/// Marks what a library or module exports; everything else stays hidden inside it.
#define WARDLOCK_API __attribute__((visibility("default")))
