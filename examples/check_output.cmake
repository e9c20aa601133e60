# Runs a program and fails unless it succeeds and prints exactly the text of a file.
#   cmake -DCOMMAND=program|argument|... -DEXPECTED=file -P check_output.cmake
string(REPLACE "|" ";" COMMAND "${COMMAND}")
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE output RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0 OR NOT output STREQUAL expected)
  message(FATAL_ERROR "status ${status}, expected 0\nprinted:\n${output}\nexpected:\n${expected}")
endif()
