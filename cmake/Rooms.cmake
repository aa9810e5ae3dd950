# A source file belongs to the room it stands in: every *.cpp of the named folders becomes part of the target.
function(wardlock_sources target)
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    if(NOT sources)
      # An empty room is no error, but CMake wants a source in every target.
      set(sources "${CMAKE_CURRENT_BINARY_DIR}/${target}-empty.cpp")
      file(CONFIGURE OUTPUT "${sources}" CONTENT "")
    endif()
    target_sources(${target} PRIVATE ${sources})
  endforeach()
  set_source_files_properties("${PROJECT_SOURCE_DIR}/info/DeveloperView.cpp" PROPERTIES
    COMPILE_DEFINITIONS "WARDLOCK_REPOSITORY_HOST=\"${WARDLOCK_REPOSITORY_HOST}\"")
endfunction()
