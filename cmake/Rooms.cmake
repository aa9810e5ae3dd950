# A source file belongs to the room it stands in: every *.cpp of the named folders becomes part of the target.
function(wardlock_sources target)
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    target_sources(${target} PRIVATE ${sources})
  endforeach()
endfunction()
