# The release is hardened as Debian's packages are, and with further options of gcc 12 and glibc.
# tests/system/installation/hardening.py checks the built files. Assertions of the standard library end a process that reads
# beyond a container.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# A program or library depends only on the libraries whose symbols it uses.
target_link_options(wardlock-options INTERFACE LINKER:--as-needed)

if(CMAKE_BUILD_TYPE STREQUAL "Release")
  target_compile_options(wardlock-options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -D_GLIBCXX_ASSERTIONS
    -fstack-protector-strong -fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    target_compile_options(wardlock-options INTERFACE -fcf-protection)
  endif()
  target_link_options(wardlock-options INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
endif()
