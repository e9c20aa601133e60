# Fails when a library refers to a function of the platform's mathematics library, whose last bits differ from
# platform to platform. Square root, remainder and rounding to integers are exact everywhere and may stay.
#   cmake -DOBJDUMP=<objdump> -DLIBRARY=<library> -P check_math_symbols.cmake
cmake_minimum_required(VERSION 3.22)

# The functions of <math.h> and <complex.h>, C23, that are not exact by definition, with the suffixes of float and
# long double.
set(names
  acos asin atan atan2 cos sin tan acospi asinpi atanpi atan2pi cospi sinpi tanpi sincos
  acosh asinh atanh cosh sinh tanh
  exp exp10 exp10m1 exp2 exp2m1 expm1 log log10 log10p1 log1p log2 log2p1 logp1
  cbrt compoundn hypot pow pown powr rootn rsqrt
  erf erfc lgamma tgamma fma fmin fmax
  cabs cacos cacosh carg casin casinh catan catanh ccos ccosh cexp clog cpow csin csinh csqrt ctan ctanh)
list(JOIN names "|" alternatives)

execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE imported COMMAND_ERROR_IS_FATAL ANY)
if(NOT imported MATCHES "DLL Name:")
  execute_process(COMMAND ${OBJDUMP} -T ${LIBRARY} OUTPUT_VARIABLE imported COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]*\\*UND\\*[^\n]*" imported "${imported}")
  if(NOT imported)
    message(FATAL_ERROR "no imported symbols found in ${LIBRARY}")
  endif()
endif()
foreach(line IN LISTS imported)
  string(REGEX MATCHALL "[ \t](${alternatives})[fl]?(\n|$)" found "${line}\n")
  if(found)
    message(SEND_ERROR "${LIBRARY}: imports ${found}")
  endif()
endforeach()
