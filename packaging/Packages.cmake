# The Debian packages, which CPack builds from the components of cmake/Install.cmake. Run by packaging/build.
if(NOT WARDLOCK_PACKAGES)
  return()
endif()

# The changelog has the version of the packages: the version of the program, and a revision of the packaging.
set(changelog "${PROJECT_SOURCE_DIR}/packaging/debian/changelog")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${changelog}")
file(STRINGS "${changelog}" newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^wardlock \\(([0-9.]+)-([0-9]+)\\) ")
  message(FATAL_ERROR "packaging/debian/changelog must begin with an entry of wardlock")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})
if(NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
  message(FATAL_ERROR "packaging/debian/changelog has version ${CMAKE_MATCH_1}, but the project has ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wardlock)
# Each component has its own summary.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_OUTPUT_FILE_PREFIX "${PROJECT_SOURCE_DIR}/build/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/complete.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/withdraw-scripts.cmake")
set(CPACK_WARDLOCK_DEBIAN_FOLDER "${PROJECT_SOURCE_DIR}/packaging/debian")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL wardlock libwardlock libwardlock-dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tavix <support@tavix.example>")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://tavix.example/wardlock")
set(CPACK_DEBIAN_PACKAGE_SOURCE wardlock)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Dependencies on libraries are read from the built files. The packages of one build depend on each other.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} name)
  file(READ "packaging/debian/${component}.description" CPACK_COMPONENT_${name}_DESCRIPTION)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "packaging/debian/${component}.description")
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${component})
endforeach()

set(CPACK_DEBIAN_WARDLOCK_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_WARDLOCK_DEPENDS libwardlock)
# Dependencies that no built file names: the window's QML imports, the decoder of icons, the base icon theme of applications, and a
# font (without one, a minimal system shows no text at all).
string(JOIN ", " CPACK_DEBIAN_WARDLOCK_PACKAGE_DEPENDS
  qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtqml qml6-module-qtqml-workerscript libqt6svg6 hicolor-icon-theme
  fonts-inter)
# The web page in the window, mail and links, the window on Wayland, and letters that applications' names use and Inter lacks.
set(CPACK_DEBIAN_WARDLOCK_PACKAGE_RECOMMENDS
  "qml6-module-qtwebengine, qt6-wayland, xdg-utils, fonts-noto-color-emoji, fonts-noto-cjk")

# The version in the SONAME of the libraries.
get_target_property(soname wardlock-settings-library SOVERSION)
set(CPACK_DEBIAN_LIBWARDLOCK_PACKAGE_NAME libwardlock${soname})
set(CPACK_DEBIAN_LIBWARDLOCK_PACKAGE_SECTION libs)
# Started where no bus is running, so that other processes are notified of changes; opened with the first web page.
set(CPACK_DEBIAN_LIBWARDLOCK_PACKAGE_DEPENDS "dbus-daemon, libcurl4 (>= 7.85)")
# What programs that link the libraries depend on, and the trigger that updates the linker's cache.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/debian/shlibs" CONTENT
"libwardlock-platform ${soname} libwardlock${soname} (>= ${PROJECT_VERSION})
libwardlock-settings ${soname} libwardlock${soname} (>= ${PROJECT_VERSION})
")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/debian/triggers" CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBWARDLOCK_PACKAGE_CONTROL_EXTRA
  "${PROJECT_BINARY_DIR}/debian/shlibs" "${PROJECT_BINARY_DIR}/debian/triggers")

set(CPACK_DEBIAN_LIBWARDLOCK-DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_LIBWARDLOCK-DEV_DEPENDS libwardlock)

include(CPack)
