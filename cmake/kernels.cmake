# Kernels: sources that are compiled once for each instruction set, each time into a namespace of that set's name,
# and chosen among at run time. x86 has three sets, every other platform its baseline alone.
#
#   trelvanix_add_kernels(<target> <source>...)   adds the objects of all sets to the target; may be called for
#                                                 several targets
#
# TRELVANIX_PLAIN_LANES builds them without the compiler's vector types, as compilers without such types do (MSVC).
option(TRELVANIX_PLAIN_LANES "Build the kernels without the compiler's vector types" OFF)

set(trelvanixInstructionSets baseline)
set(trelvanixKernelDefinitions)
if(TRELVANIX_PLAIN_LANES)
  list(APPEND trelvanixKernelDefinitions TRELVANIX_PLAIN_LANES)
elseif(NOT MSVC AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|x86_64|AMD64)$")
  list(APPEND trelvanixInstructionSets avx2 avx512)
  list(APPEND trelvanixKernelDefinitions TRELVANIX_X86_KERNELS)
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
    set(kernels ${target}_kernels_${set})
    add_library(${kernels} OBJECT ${ARGN})
    target_compile_features(${kernels} PRIVATE cxx_std_20)
    target_compile_definitions(${kernels} PRIVATE
      TRELVANIX_INSTRUCTION_SET=${set} ${trelvanixKernelDefinitions})
    target_compile_options(${kernels} PRIVATE ${trelvanix_${set}_options})
    target_include_directories(${kernels} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${kernels} PRIVATE trelvanix_arithmetic trelvanix_warnings)
    set_target_properties(${kernels} PROPERTIES
      CXX_EXTENSIONS OFF
      CXX_VISIBILITY_PRESET hidden
      VISIBILITY_INLINES_HIDDEN ON
      POSITION_INDEPENDENT_CODE ON)
    target_sources(${target} INTERFACE $<TARGET_OBJECTS:${kernels}>)
    set_property(GLOBAL APPEND PROPERTY trelvanixKernelTargets ${kernels})
  endforeach()
endfunction()
