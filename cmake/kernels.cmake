# Kernels: sources that are compiled once for each instruction set, each time into a namespace of that
# set's name (baseline, avx2, avx512), and chosen among at run time. Where a platform or compiler lacks
# the options, the twins are compiled without them and never chosen.
#
#   trelvanix_add_kernels(<target> <source>...)   adds the objects of all sets to the target

set(trelvanixInstructionSets baseline avx2 avx512)
if(NOT MSVC AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|x86_64|AMD64)$")
  # Without -mfma, so that no multiply-add can fuse.
  set(trelvanix_avx2_options -mavx2)
  set(trelvanix_avx512_options -mavx512f -mavx512dq -mavx512vl -mavx512bw)
  if(MINGW)
    # On 64-bit Windows GCC aligns the stack to 16 bytes only, so spilled vectors must not be moved by
    # instructions that demand more.
    list(APPEND trelvanix_avx2_options -Wa,-muse-unaligned-vector-move)
    list(APPEND trelvanix_avx512_options -Wa,-muse-unaligned-vector-move)
  endif()
endif()

function(trelvanix_add_kernels target)
  foreach(set IN LISTS trelvanixInstructionSets)
    add_library(trelvanix_kernels_${set} OBJECT ${ARGN})
    target_compile_features(trelvanix_kernels_${set} PRIVATE cxx_std_20)
    target_compile_definitions(trelvanix_kernels_${set} PRIVATE TRELVANIX_INSTRUCTION_SET=${set})
    target_compile_options(trelvanix_kernels_${set} PRIVATE ${trelvanix_${set}_options})
    target_include_directories(trelvanix_kernels_${set} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(trelvanix_kernels_${set} PRIVATE trelvanix_arithmetic trelvanix_warnings)
    set_target_properties(trelvanix_kernels_${set} PROPERTIES
      CXX_EXTENSIONS OFF
      CXX_VISIBILITY_PRESET hidden
      VISIBILITY_INLINES_HIDDEN ON
      POSITION_INDEPENDENT_CODE ON)
    target_sources(${target} INTERFACE $<TARGET_OBJECTS:trelvanix_kernels_${set}>)
  endforeach()
endfunction()
