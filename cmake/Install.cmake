# What other programs need: the programs, the shared libraries with their headers, and how CMake and pkg-config find them.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Wardlock")

set_target_properties(wardlock-platform PROPERTIES EXPORT_NAME platform)
set_target_properties(wardlock-settings-library PROPERTIES EXPORT_NAME settings INSTALL_RPATH "$ORIGIN")
target_compile_features(wardlock-platform INTERFACE cxx_std_20)
install(TARGETS wardlock-platform wardlock-settings-library EXPORT WardlockTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY platform settings DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/wardlock"
  FILES_MATCHING PATTERN "*.h")

install(EXPORT WardlockTargets NAMESPACE Wardlock:: DESTINATION "${package_folder}")
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/WardlockConfig.cmake"
  CONTENT "include(\"\${CMAKE_CURRENT_LIST_DIR}/WardlockTargets.cmake\")\n" @ONLY)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/WardlockConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/WardlockConfig.cmake" "${CMAKE_BINARY_DIR}/WardlockConfigVersion.cmake"
  DESTINATION "${package_folder}")

file(RELATIVE_PATH include_from_lib "/${CMAKE_INSTALL_LIBDIR}" "/${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/wardlock-settings.pc.in "${CMAKE_BINARY_DIR}/wardlock-settings.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/wardlock-settings.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

foreach(program IN ITEMS wardlock-command wardlock-window-program)
  if(TARGET ${program})
    set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  endif()
endforeach()
