# Instrumentation changes how a whole process works, so it is set for the whole build, and a target may refuse it.
if(WARDLOCK_SANITIZE)
  add_compile_options(-fsanitize=${WARDLOCK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${WARDLOCK_SANITIZE})
  # Whether an object is of its pointer's class is not known of the web engine's items, which are built without such
  # information, nor where no descriptor is left.
  add_compile_options(-fno-sanitize=vptr)
endif()
if(WARDLOCK_COVERAGE)
  # Processes of one test run at the same time, so the counts are added up in one step; and one that is killed or ends by
  # _exit leaves none.
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
if(WARDLOCK_FUZZERS)
  # The fuzzers steer by what the libraries execute.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
