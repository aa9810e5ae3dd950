option(WARDLOCK_TESTS "Build the tests, where GoogleTest is installed" ON)
option(WARDLOCK_BENCHMARKS "Build the benchmarks" OFF)
option(WARDLOCK_FUZZERS "Build the fuzz targets (clang only)" OFF)
option(WARDLOCK_WINDOW "Build the window (needs Qt 6)" ON)
option(WARDLOCK_PACKAGES "Make the Debian packages when cpack is run" OFF)
option(WARDLOCK_COVERAGE "Count which lines run (gcc only)" OFF)
set(WARDLOCK_SANITIZE "" CACHE STRING "Sanitizers to build with: a list for -fsanitize=")
set(WARDLOCK_REPOSITORY_HOST "repo.tavix.example" CACHE STRING "Host of the package listing")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# How the targets of this project are compiled and linked. The libraries link it privately, so that their users do not inherit it.
add_library(wardlock-options INTERFACE)
target_include_directories(wardlock-options INTERFACE "${PROJECT_SOURCE_DIR}")
# GLib requires it. Used everywhere, because precompiled headers are shared.
target_compile_options(wardlock-options INTERFACE -pthread)
# No program replaces single functions of the shared libraries, so calls inside them can be bound (clang's default).
target_compile_options(wardlock-options INTERFACE $<$<CONFIG:Release>:-fno-semantic-interposition>)

# Within another project, its own flags and folders apply.
if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The build tree has the layout of an installation, so that programs find their libraries and modules in the same way. No RUNPATH
# is changed on installation: CMake would reserve space for that by an empty element, which means the current folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")

target_compile_options(wardlock-options INTERFACE -Wall -Wextra -Wpedantic)
# gcc searches its memory for garbage from a size on that precompiled headers nearly reach: a sixth of longer compilations, in
# vain.
target_compile_options(wardlock-options INTERFACE
  $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:--param=ggc-min-heapsize=524288>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 wrongly warns of overlapping and out-of-bounds copies in every optimised "literal" + std::string (its bugs 105329,
  # 105651).
  target_compile_options(wardlock-options INTERFACE
    -Wno-restrict $<$<CONFIG:Release>:-Wno-array-bounds> $<$<CONFIG:Release>:-Wno-stringop-overflow>)
endif()
include(cmake/Hardening.cmake)
include(cmake/Instrumentation.cmake)
