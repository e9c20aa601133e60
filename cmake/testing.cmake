# How the tests are found and run: on this machine, or under Wine when cross compiling for Windows.
#   trelvanix_add_gtest(TARGET [PREFIX])  registers the suites of a GoogleTest program, PREFIX before their names:
#                                         one process for each, not one for each case. Under Wine the program is
#                                         one test, because every start takes a while there.
#   trelvanix_run_under_wine(TEST...)     to be said of every other test that starts a Windows program; does
#                                         nothing for a native build. Without Wine such tests are skipped.
if(CMAKE_CROSSCOMPILING OR TRELVANIX_SANITIZE MATCHES "memory")
  # Debian ships GoogleTest for the machine itself as a library, for others, and for builds in which everything
  # has to be instrumented, as sources.
  set(TRELVANIX_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Sources of GoogleTest")
  set(INSTALL_GTEST OFF CACHE BOOL "Install GoogleTest")
  set(BUILD_GMOCK OFF CACHE BOOL "Build GoogleMock")
  add_subdirectory(${TRELVANIX_GOOGLETEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()

if(CMAKE_CROSSCOMPILING)
  # Every Windows test begins with the same Wine server, which would else be started for each of them.
  add_test(NAME wine.start COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --start)
  add_test(NAME wine.stop COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --stop)
  set_tests_properties(wine.start PROPERTIES FIXTURES_SETUP wine SKIP_RETURN_CODE 77)
  set_tests_properties(wine.stop PROPERTIES FIXTURES_CLEANUP wine SKIP_RETURN_CODE 77)
endif()

function(trelvanix_run_under_wine)
  if(CMAKE_CROSSCOMPILING)
    set_tests_properties(${ARGN} PROPERTIES FIXTURES_REQUIRED wine SKIP_RETURN_CODE 77)
  endif()
endfunction()

# The programs of the tests of internals, those without a prefix.
add_custom_target(unit_tests)

function(trelvanix_add_gtest target)
  if(NOT ARGV1)
    add_dependencies(unit_tests ${target})
  endif()
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${ARGV1}${target} COMMAND ${target})
    trelvanix_run_under_wine(${ARGV1}${target})
  else()
    # The suites are known once the program is built; until then it counts as a test that fails.
    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
    set(registration ${CMAKE_CURRENT_BINARY_DIR}/${target}_registration.cmake)
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
      COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> -DPREFIX=${ARGV1} -DOUTPUT=${suites}
              -P ${PROJECT_SOURCE_DIR}/cmake/list_gtest_suites.cmake)
    file(WRITE ${registration}
      "if(EXISTS [[${suites}]])\n"
      "  include([[${suites}]])\n"
      "else()\n"
      "  add_test([[${target}]] [[${target} is not built]])\n"
      "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${registration})
  endif()
endfunction()
