# Writes the CTest file that registers every suite of a GoogleTest program as one test:
#   cmake -DPROGRAM=... -DPREFIX=... -DOUTPUT=... -P list_gtest_suites.cmake
execute_process(COMMAND ${PROGRAM} --gtest_list_tests
  OUTPUT_VARIABLE list COMMAND_ERROR_IS_FATAL ANY)
# A suite stands alone on its line with a point behind it, its cases below it are indented.
string(REGEX MATCHALL "(^|\n)[^ \n]+\\.[ \n]" suites "${list}")
if(NOT suites)
  message(FATAL_ERROR "${PROGRAM} lists no suites")
endif()
set(tests "")
foreach(suite IN LISTS suites)
  string(REGEX REPLACE "^\n?(.*)\\.[ \n]$" "\\1" suite "${suite}")
  string(APPEND tests "add_test([[${PREFIX}${suite}]] [[${PROGRAM}]] [[--gtest_filter=${suite}.*]] --gtest_brief=1)\n")
endforeach()
file(WRITE ${OUTPUT} "${tests}")
