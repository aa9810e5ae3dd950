find_package(Python3 REQUIRED COMPONENTS Interpreter)

# wardlock_install_pages(COMPONENT PAGES page... FOLDERS folder...): pages of the documentation, in the package's folder of
# documents, with links that lead somewhere there (rewrite_links.py). The folders are those that the package has beside the pages.
function(wardlock_install_pages component)
  cmake_parse_arguments(PARSE_ARGV 1 its "" "" "PAGES;FOLDERS")
  set(script "${PROJECT_SOURCE_DIR}/cmake/rewrite_links.py")
  set(folder "${PROJECT_BINARY_DIR}/pages/${component}")
  list(TRANSFORM its_PAGES PREPEND "${PROJECT_SOURCE_DIR}/docs/" OUTPUT_VARIABLE sources)
  list(TRANSFORM its_PAGES PREPEND "${folder}/" OUTPUT_VARIABLE pages)
  add_custom_command(OUTPUT ${pages}
    COMMAND ${Python3_EXECUTABLE} -B "${script}" "${PROJECT_SOURCE_DIR}/docs" "${folder}"
      --pages ${its_PAGES} --folders ${its_FOLDERS}
    DEPENDS "${script}" ${sources} VERBATIM)
  add_custom_target(${component}-documentation ALL DEPENDS ${pages})
  install(FILES ${pages} DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${component}" COMPONENT ${component})
endfunction()
