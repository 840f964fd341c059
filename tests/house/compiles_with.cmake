# Checks that a compiler takes floors 0 to 5 without a warning: every source file, and every header on its own. What it
# makes may hold no folder of this machine, though assertions name source files.
# Run with: cmake -DROOT=... -DOUT=... -DCXX=... -DLAUNCHER=... -P compiles_with.cmake
cmake_minimum_required(VERSION 3.25)

macro(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${result}\n${output}")
  endif()
endmacro()

find_program(compiler ${CXX} REQUIRED)
set(tools -G Ninja -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_BUILD_TYPE=)
run(${CMAKE_COMMAND} -S ${ROOT} -B ${OUT}/libraries ${tools}
  -DORV_WERROR=ON -DORV_ASSERTIONS=ON -DORV_PLATFORM=OFF -DORV_TESTS=OFF)
run(${CMAKE_COMMAND} --build ${OUT}/libraries)
file(GLOB_RECURSE archives ${OUT}/libraries/*.a)
set(assertions "")
foreach(archive IN LISTS archives)
  file(STRINGS ${archive} machinePaths REGEX "${ROOT}/")
  if(machinePaths)
    message(FATAL_ERROR "${archive} names the source tree: ${machinePaths}")
  endif()
  file(STRINGS ${archive} found REGEX "^rtl/Unicode\\.cpp$")
  list(APPEND assertions ${found})
endforeach()
if(NOT assertions)
  message(FATAL_ERROR "no assertion names its source file in ${archives}")
endif()

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/headers -B ${OUT}/headers ${tools} -DROOT=${ROOT})
run(${CMAKE_COMMAND} --build ${OUT}/headers)
