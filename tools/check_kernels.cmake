# Fails when
#   - an object of the library holds a fused multiply-add, which rounds once where the contract rounds
#     twice: compilers form them in spite of -ffp-contract=off;
#   - an object compiled for an instruction set defines a symbol besides the table of its kernels: the linker
#     might take that definition for the whole library and stop processors without the set.
#
#   cmake -DOBJDUMP=... -DNM=... -DOBJECTS=a.o,b.o,... -DSETS=baseline,avx2,avx512 -P check_kernels.cmake
# Objects of a set are recognised by their folder, <target>_kernels_<set>.dir. The sets come in the order of the
# enumeration InstructionSet, whose numbers stand in the mangled names of the tables.
string(REPLACE "," ";" objects "${OBJECTS}")
string(REPLACE "," ";" sets "${SETS}")

set(kernelCount 0)
foreach(object IN LISTS objects)
  execute_process(COMMAND ${OBJDUMP} -d --no-show-raw-insn ${object}
    OUTPUT_VARIABLE assembly COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "\tv?fn?m(add|sub)[a-z0-9]*[^\n]*" fused "${assembly}")
  if(fused)
    message(SEND_ERROR "${object}: fused multiply-add: ${fused}")
  endif()

  foreach(set IN LISTS sets)
    if(NOT object MATCHES "_kernels_${set}\\.dir")
      continue()
    endif()
    math(EXPR kernelCount "${kernelCount} + 1")
    execute_process(COMMAND ${NM} --defined-only --extern-only --format=posix ${object}
      OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
    string(STRIP "${symbols}" symbols)
    string(REPLACE "\n" ";" symbols "${symbols}")
    list(FIND sets ${set} number)
    foreach(symbol IN LISTS symbols)
      if(NOT symbol MATCHES "^_ZN9trelvanix15CompiledKernelsINS_[A-Za-z0-9]+ELNS_14InstructionSetE${number}EEET_v ")
        message(SEND_ERROR "${object}: defines ${symbol} besides the kernels for ${set}")
      endif()
    endforeach()
  endforeach()
endforeach()
if(kernelCount EQUAL 0)
  message(SEND_ERROR "no object of a kernel was found")
endif()
