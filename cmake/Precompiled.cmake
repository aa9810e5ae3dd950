# Precompiled headers hold headers of others only: the standard library, GoogleTest, Qt. A header of the project in one would be
# compiled into everything that does not include it, and building with CMAKE_DISABLE_PRECOMPILE_HEADERS=ON, as tools/lint does,
# finds what relies on one for an include of its own.

# The precompiled header has to be named in what a compiler cache looks at.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  target_compile_options(wardlock-options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  target_compile_options(wardlock-options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
endif()
# Position independent in the same way as libraries: what is compiled for a program shares their precompiled header.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

# wardlock_precompiled(NAME header...): a precompiled header for the targets that say wardlock_precompile(TARGET NAME), compiled
# once with the options of this folder.
function(wardlock_precompiled name)
  set(source "${PROJECT_BINARY_DIR}/precompiled/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "// What a precompiled header belongs to.\n")
  add_library(wardlock-precompiled-${name} OBJECT "${source}")
  target_link_libraries(wardlock-precompiled-${name} PRIVATE wardlock-options)
  target_precompile_headers(wardlock-precompiled-${name} PRIVATE ${ARGN})
endfunction()

function(wardlock_precompile target name)
  target_precompile_headers(${target} REUSE_FROM wardlock-precompiled-${name})
endfunction()

# What a fifth of the product's sources or more include.
wardlock_precompiled(standard
  <algorithm> <array> <charconv> <chrono> <cmath> <cstddef> <cstdint> <cstdlib> <filesystem> <functional> <map> <memory> <mutex>
  <optional> <string> <string_view> <system_error> <utility> <variant> <vector>)
