# wardlock_sources(TARGET folder...): adds every *.cpp of the folders to the target.
function(wardlock_sources target)
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    target_sources(${target} PRIVATE ${sources})
  endforeach()
endfunction()
