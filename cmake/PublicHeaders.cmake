# wardlock_public_headers(TARGET header...): the headers of this folder that other programs may include, as
# <wardlock/FOLDER/...>, from an installation and from a build alike. They include each other relative to themselves, so that no
# folder of those programs is taken for one of these.
function(wardlock_public_headers target)
  set(include "${PROJECT_BINARY_DIR}/include")
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
  file(MAKE_DIRECTORY "${include}/wardlock")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${include}/wardlock/${folder}" SYMBOLIC)
  list(TRANSFORM ARGN PREPEND "${include}/wardlock/${folder}/" OUTPUT_VARIABLE headers)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${include}" FILES ${headers})
  set_property(TARGET ${target} PROPERTY VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL})
endfunction()
