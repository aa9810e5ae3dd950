# What is installed, in three components, each of which becomes a package:
#   wardlock          the window, the command, the bundle, the modules, the desktop entry, and the documentation for users
#   libwardlock       the two shared libraries
#   libwardlock-dev   their headers, files for CMake and pkg-config, examples, and the documentation for developers
include(CMakePackageConfigHelpers)
include(cmake/InstallPages.cmake)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Wardlock")

set_target_properties(wardlock-settings-library PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN")
install(TARGETS wardlock-platform wardlock-settings-library EXPORT WardlockTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT libwardlock NAMELINK_COMPONENT libwardlock-dev
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT libwardlock-dev)

install(EXPORT WardlockTargets NAMESPACE Wardlock:: DESTINATION "${package_folder}" COMPONENT libwardlock-dev)
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/WardlockConfig.cmake"
  CONTENT "include(\"\${CMAKE_CURRENT_LIST_DIR}/WardlockTargets.cmake\")\n" @ONLY)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/WardlockConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/WardlockConfig.cmake" "${CMAKE_BINARY_DIR}/WardlockConfigVersion.cmake"
  DESTINATION "${package_folder}" COMPONENT libwardlock-dev)

install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libwardlock-dev" COMPONENT libwardlock-dev
  USE_SOURCE_PERMISSIONS PATTERN build EXCLUDE)
wardlock_install_pages(libwardlock-dev FOLDERS examples
  PAGES index.md embedding.md notification.md document-format.md dependencies.md performance.md)
install(DIRECTORY docs/images DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/wardlock" COMPONENT wardlock)
wardlock_install_pages(wardlock FOLDERS images
  PAGES index.md user-guide.md administration.md recovery.md automation.md document-format.md security.md)

file(RELATIVE_PATH include_from_lib "/${CMAKE_INSTALL_LIBDIR}" "/${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/wardlock-settings.pc.in "${CMAKE_BINARY_DIR}/wardlock-settings.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/wardlock-settings.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
  COMPONENT libwardlock-dev)

foreach(program IN ITEMS wardlock-command wardlock-window-program)
  if(TARGET ${program})
    file(RELATIVE_PATH lib_from_bin "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(${program} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
    install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT wardlock)
  endif()
endforeach()

# The desktop entry of the window, and what goes by its name: the name on the message bus, the icon and the metadata.
if(TARGET wardlock-window-program)
  set(entry com.tavix.wardlock.Settings)
  configure_file(packaging/desktop/${entry}.metainfo.xml.in "${CMAKE_BINARY_DIR}/${entry}.metainfo.xml" @ONLY)
  install(FILES "${CMAKE_BINARY_DIR}/${entry}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT wardlock)
  install(FILES packaging/desktop/${entry}.desktop
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT wardlock)
  # The bus starts only a program whose whole path it knows, and that depends on the prefix of the installation.
  install(CODE "
    set(program \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/wardlock-settings\")
    string(MD5 folder \"\${program}\")
    set(service \"${CMAKE_BINARY_DIR}/services/\${folder}/${entry}.service\")
    configure_file(\"${PROJECT_SOURCE_DIR}/packaging/desktop/${entry}.service.in\" \"\${service}\" @ONLY)
    file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/dbus-1/services\" TYPE FILE
      FILES \"\${service}\")
    file(REMOVE_RECURSE \"${CMAKE_BINARY_DIR}/services/\${folder}\")"
    COMPONENT wardlock)
  set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
  install(FILES resources/icon.svg RENAME ${entry}.svg
    DESTINATION "${icons}/scalable/apps" COMPONENT wardlock)
  foreach(size IN ITEMS 48 128)
    install(FILES packaging/desktop/wardlock-settings-${size}.png RENAME ${entry}.png
      DESTINATION "${icons}/${size}x${size}/apps" COMPONENT wardlock)
  endforeach()
endif()

# The build tree has generated files in the layout of the installation: man/man1, bash-completion/completions, ...
install(DIRECTORY "${CMAKE_BINARY_DIR}/share/" DESTINATION "${CMAKE_INSTALL_DATADIR}" COMPONENT wardlock OPTIONAL)
