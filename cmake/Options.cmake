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

# What is installed lies in the build tree as in an installation, and finds its libraries and modules in the same way there: no
# RUNPATH is changed on installing, for which CMake would keep room by an empty element, that is the current folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")

add_compile_options(-Wall -Wextra -Wpedantic)
# As GLib asks of whoever uses it; alike everywhere, as precompiled headers are shared.
add_compile_options(-pthread)
# Nobody replaces single functions of the shared libraries, so calls inside them need not allow for it (clang's default).
add_compile_options($<$<CONFIG:Release>:-fno-semantic-interposition>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 sees copies that overlap or leave their bounds in every optimised "literal" + std::string (its bugs 105329, 105651).
  add_compile_options(-Wno-restrict)
  add_compile_options($<$<CONFIG:Release>:-Wno-array-bounds> $<$<CONFIG:Release>:-Wno-stringop-overflow>)
endif()
include(cmake/Hardening.cmake)
if(WARDLOCK_SANITIZE)
  add_compile_options(-fsanitize=${WARDLOCK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${WARDLOCK_SANITIZE})
  # Whether an object is of its pointer's class cannot be told of the web engine's items, which are built without such
  # information, nor where no descriptor is left.
  add_compile_options(-fno-sanitize=vptr)
endif()
if(WARDLOCK_COVERAGE)
  # Processes of one test run at the same time, so the counts are added up in one step; and one that is killed or ends by
  # _exit leaves none.
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
if(WARDLOCK_FUZZERS)
  # The fuzzers steer by what the libraries execute.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
