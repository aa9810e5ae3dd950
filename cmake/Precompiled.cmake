# Precompiled headers contain only headers of the standard library, GoogleTest and Qt. A project header in one would be visible to
# sources that do not include it. A build with CMAKE_DISABLE_PRECOMPILE_HEADERS=ON, as in tools/lint, finds sources with missing
# includes.

# A compiler cache needs the name of the precompiled header in the preprocessed source.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  target_compile_options(wardlock-options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  target_compile_options(wardlock-options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
endif()
# Programs are position independent in the same way as libraries, so that they share precompiled headers.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

# wardlock_precompiled(NAME header...): defines a precompiled header for the targets with wardlock_precompile(TARGET NAME). It is
# compiled once with the options of this folder.
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

# Headers that many of the product's sources include. In each source, gcc instantiates the templates that a header's inline
# functions call, whether it uses them or not. <filesystem> and <cmath> cost more in that way than they save in the few sources
# that include them.
wardlock_precompiled(standard
  <algorithm> <array> <charconv> <chrono> <cstddef> <cstdint> <cstdlib> <functional> <map> <memory> <mutex>
  <optional> <string> <string_view> <system_error> <utility> <variant> <vector>)
