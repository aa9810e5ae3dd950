# Installs the pages of the documentation into the packages' folders of documents. Links within such a folder are kept. All
# others would be broken: their text becomes plain, and a table row that begins with one is removed.

# Sets `result` to the place of a link's target in a package's folder; empty when the package lacks the target.
function(place_of target pages folders result)
  string(REGEX REPLACE "#.*" "" path "${target}")
  cmake_path(SET path NORMALIZE "docs/${path}")
  string(REGEX REPLACE "^docs/" "" path "${path}")
  string(REGEX REPLACE "/.*" "" folder "${path}")
  set(${result} "" PARENT_SCOPE)
  if(path IN_LIST pages OR folder IN_LIST folders)
    set(${result} "${path}" PARENT_SCOPE)
  endif()
endfunction()

# Sets `result` to the text of a page with its links adapted.
function(text_of page pages folders result)
  file(READ "${PROJECT_SOURCE_DIR}/docs/${page}" text)
  # Without the bracket that closes the link's text: CMake treats a lone bracket in a list as special.
  string(REGEX MATCHALL "[(][A-Za-z0-9./_-]+(#[A-Za-z0-9_-]+)?[)]" targets "${text}")
  list(REMOVE_DUPLICATES targets)
  foreach(target IN LISTS targets)
    string(FIND "${text}" "]${target}" position)
    if(position EQUAL -1)
      continue()
    endif()
    string(REGEX REPLACE "[()]" "" link "${target}")
    place_of("${link}" "${pages}" "${folders}" place)
    string(REGEX REPLACE "([.()])" "[\\1]" pattern "${target}")
    if(place)
      string(REGEX REPLACE "^[^#]+" "${place}" link "${link}")
      string(REPLACE "]${target}" "](${link})" text "${text}")
    else()
      string(REGEX REPLACE "\n[|] [[][^]\n]*[]]${pattern}[^\n]*" "" text "${text}")
      string(REGEX REPLACE "[[]([^]]*)[]]${pattern}" "\\1" text "${text}")
    endif()
  endforeach()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# wardlock_install_pages(COMPONENT PAGES page... FOLDERS folder...): FOLDERS are the folders that the package has beside the
# pages.
function(wardlock_install_pages component)
  cmake_parse_arguments(PARSE_ARGV 1 its "" "" "PAGES;FOLDERS")
  foreach(page IN LISTS its_PAGES)
    text_of("${page}" "${its_PAGES}" "${its_FOLDERS}" text)
    file(WRITE "${CMAKE_BINARY_DIR}/pages/${component}/${page}" "${text}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/${page}")
    install(FILES "${CMAKE_BINARY_DIR}/pages/${component}/${page}"
      DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${component}" COMPONENT ${component})
  endforeach()
endfunction()
