# For tests that load the built library into Python:
#   TRELVANIX_PYTHON               the interpreter: Debian's own, which sees the modules of its packages
#   TRELVANIX_PYTHON_LOADS_LIBRARY whether it can load the library as it is configured
#   TRELVANIX_PYTHON_ENVIRONMENT   what it needs in its environment for that
set(TRELVANIX_PYTHON /usr/bin/python3 CACHE FILEPATH "Python interpreter of the tests")
set(TRELVANIX_PYTHON_LOADS_LIBRARY TRUE)
set(TRELVANIX_PYTHON_ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)

# A library built with a sanitizer expects the sanitizer's runtime to be loaded first, and Python is not
# built with it. The runtime for addresses is preloaded, which GCC has as a shared library; with it goes
# the C++ runtime, where it looks for the function that throws.
if(TRELVANIX_SANITIZE MATCHES "address" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  foreach(runtime libasan.so libstdc++.so)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
      OUTPUT_VARIABLE runtimePath OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND runtimePaths ${runtimePath})
  endforeach()
  list(JOIN runtimePaths ":" preloaded)
  # The interpreter keeps memory until it ends, which is no leak of the library's.
  list(APPEND TRELVANIX_PYTHON_ENVIRONMENT LD_PRELOAD=${preloaded} ASAN_OPTIONS=detect_leaks=0)
elseif(TRELVANIX_SANITIZE OR CMAKE_CROSSCOMPILING)
  set(TRELVANIX_PYTHON_LOADS_LIBRARY FALSE)
endif()
if(NOT TRELVANIX_PYTHON_LOADS_LIBRARY)
  message(STATUS "Tests that load the library into Python are left out of this configuration")
endif()
