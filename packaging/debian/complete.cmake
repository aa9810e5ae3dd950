# Run by CPack after the components are installed and before they are packed. Adds the files that only a Debian package has.
find_program(gzip gzip REQUIRED)

function(compress file)
  execute_process(COMMAND ${gzip} --best --no-name --force "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} name)
  set(package ${CPACK_DEBIAN_${name}_PACKAGE_NAME})
  set(share "${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
  set(documents "${share}/doc/${package}")

  # It is installed below a temporary folder, which is in the path of the program.
  file(GLOB services "${share}/dbus-1/services/*.service")
  foreach(service IN LISTS services)
    file(READ "${service}" text)
    string(REPLACE "Exec=${CPACK_TEMPORARY_DIRECTORY}/${component}/" "Exec=/" text "${text}")
    if(NOT text MATCHES "\nExec=${CPACK_PACKAGING_INSTALL_PREFIX}/")
      message(FATAL_ERROR "${service} starts a program outside the package")
    endif()
    file(WRITE "${service}" "${text}")
  endforeach()

  file(COPY "${CPACK_WARDLOCK_DEBIAN_FOLDER}/copyright" DESTINATION "${documents}"
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  file(COPY_FILE "${CPACK_WARDLOCK_DEBIAN_FOLDER}/changelog" "${documents}/changelog.Debian")
  compress("${documents}/changelog.Debian")

  set(overrides "${CPACK_WARDLOCK_DEBIAN_FOLDER}/${package}.lintian-overrides")
  if(EXISTS "${overrides}")
    file(COPY "${overrides}" DESTINATION "${share}/lintian/overrides"
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    file(RENAME "${share}/lintian/overrides/${package}.lintian-overrides" "${share}/lintian/overrides/${package}")
  endif()

  file(GLOB pages "${share}/man/man*/*.[1-9]")
  foreach(page IN LISTS pages)
    compress("${page}")
  endforeach()
endforeach()
