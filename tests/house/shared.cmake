# Installs the shared libraries of a build into a folder of their own, and builds an application outside the tree with
# pkg-config against the host framework alone: it shows text from left to right, and in both directions with the system's
# library preloaded.
# Run with: cmake -DROOT=... -DBUILD=... -DOUT=... -DCXX=... -DFLAGS=... -P shared.cmake
cmake_minimum_required(VERSION 3.25)
set(prefix ${OUT}/prefix)
file(REMOVE_RECURSE ${OUT})
file(MAKE_DIRECTORY ${OUT})

macro(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${result}\n${output}${errors}")
  endif()
endmacro()

run(${CMAKE_COMMAND} --install ${BUILD} --component shared --prefix ${prefix})
file(GLOB_RECURSE pc ${prefix}/fmx.pc)
get_filename_component(pcFolder ${pc} DIRECTORY)
get_filename_component(libFolder ${pcFolder} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pcFolder})
run(pkg-config --cflags --libs fmx)
separate_arguments(flags UNIX_COMMAND "${output} ${FLAGS}")
run(${CXX} -std=c++20 -I${ROOT} ${ROOT}/tests/platform/loaded/Probe.cpp ${flags} -o ${OUT}/probe)

set(ENV{LD_LIBRARY_PATH} ${libFolder})
set(ENV{ASAN_OPTIONS} verify_asan_link_order=0:detect_leaks=0)
run(${OUT}/probe)
if(NOT output MATCHES "layout TGPUTextLayout\n.*direction left to right")
  message(FATAL_ERROR "without the library:\n${output}")
endif()
run(${CMAKE_COMMAND} -E env LD_PRELOAD=liborv.so ${OUT}/probe)
if(NOT output MATCHES "layout TTextLayoutNGOrv\n.*direction right to left")
  message(FATAL_ERROR "with the library:\n${output}")
endif()
