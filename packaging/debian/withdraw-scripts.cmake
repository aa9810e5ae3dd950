# Run by CPack after the packages are built. Removes the scripts that CPack writes for every library: they call ldconfig, which
# Debian's packages leave to a trigger.
find_program(dpkg_deb dpkg-deb REQUIRED)

foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree "${package}.tree")
  execute_process(COMMAND ${dpkg_deb} --raw-extract "${package}" "${tree}" COMMAND_ERROR_IS_FATAL ANY)
  if(EXISTS "${tree}/DEBIAN/triggers")
    file(REMOVE "${tree}/DEBIAN/postinst" "${tree}/DEBIAN/postrm")
    execute_process(COMMAND ${dpkg_deb} --root-owner-group --build "${tree}" "${package}"
      OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endif()
  file(REMOVE_RECURSE "${tree}")
endforeach()
