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
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The build tree has the layout of an installation, so that programs find their libraries and modules in the same way. No RUNPATH
# is changed on installation: CMake would reserve space for that by an empty element, which means the current folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")

add_compile_options(-Wall -Wextra -Wpedantic)
# GLib requires it. Used everywhere, because precompiled headers are shared.
add_compile_options(-pthread)
# No program replaces single functions of the shared libraries, so calls inside them can be bound (clang's default).
add_compile_options($<$<CONFIG:Release>:-fno-semantic-interposition>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 wrongly warns of overlapping and out-of-bounds copies in every optimised "literal" + std::string (its bugs 105329,
  # 105651).
  add_compile_options(-Wno-restrict)
  add_compile_options($<$<CONFIG:Release>:-Wno-array-bounds> $<$<CONFIG:Release>:-Wno-stringop-overflow>)
endif()
include(cmake/Hardening.cmake)
if(WARDLOCK_SANITIZE)
  add_compile_options(-fsanitize=${WARDLOCK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${WARDLOCK_SANITIZE})
  # The check needs type information, which the web engine's items are built without. It also fails where no descriptor is left.
  add_compile_options(-fno-sanitize=vptr)
endif()
if(WARDLOCK_COVERAGE)
  # Processes of one test run at the same time, so the counts are updated atomically. A process that is killed or ends by _exit
  # writes no counts.
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
if(WARDLOCK_FUZZERS)
  # The fuzzers are guided by the coverage of the libraries.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
