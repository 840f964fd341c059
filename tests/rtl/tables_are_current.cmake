# Fails when the committed tables are not, byte for byte, what the generator makes of the database on this machine.
# Run with: cmake -DPYTHON=... -DROOT=... -DOUT=... -P tables_are_current.cmake
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${OUT})
file(MAKE_DIRECTORY ${OUT})
execute_process(COMMAND ${PYTHON} ${ROOT}/tools/ucd/make_tables.py --out ${OUT} COMMAND_ERROR_IS_FATAL ANY)
foreach(name IN ITEMS UnicodeData.h UnicodeMappings.inc)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${OUT}/${name} ${ROOT}/rtl/${name} RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "rtl/${name} is not what tools/ucd/make_tables.py writes; run it and look at the difference")
  endif()
endforeach()
