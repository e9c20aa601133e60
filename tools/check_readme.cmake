# Checks that the programs in the README are those of examples/hosts/, which the tests build and run.
#   cmake -DSOURCE_DIR=<project> -P check_readme.cmake
cmake_minimum_required(VERSION 3.22)

file(READ ${SOURCE_DIR}/README.md readme)
foreach(program c:readme_host.c python:readme_host.py)
  string(REGEX MATCH "^([a-z]+):(.*)$" matched ${program})
  file(READ ${SOURCE_DIR}/examples/hosts/${CMAKE_MATCH_2} source)
  string(FIND "${readme}" "```${CMAKE_MATCH_1}\n${source}```\n" position)
  if(position EQUAL -1)
    message(SEND_ERROR "README.md does not hold examples/hosts/${CMAKE_MATCH_2} word for word")
  endif()
endforeach()
