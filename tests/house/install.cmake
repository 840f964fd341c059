# Installs the libraries of floors 0 to 5 into a folder of its own and builds a product outside the tree against them:
# once with find_package(Orv), once with pkg-config.
# Run with: cmake -DROOT=... -DOUT=... -DCXX=... -DLAUNCHER=... -P install.cmake
cmake_minimum_required(VERSION 3.25)
set(prefix ${OUT}/prefix)
file(REMOVE_RECURSE ${prefix} ${OUT}/outside ${OUT}/moved)

macro(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${result}\n${output}")
  endif()
endmacro()

# The libraries, without the adapters to other libraries.
run(${CMAKE_COMMAND} -S ${ROOT} -B ${OUT}/libraries -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_INSTALL_LIBDIR=lib -DORV_PLATFORM=OFF -DORV_TESTS=OFF)
run(${CMAKE_COMMAND} --build ${OUT}/libraries)
run(${CMAKE_COMMAND} --install ${OUT}/libraries --prefix ${prefix})

# Moved, for the packages may not remember their first place.
file(RENAME ${prefix} ${OUT}/moved)
set(prefix ${OUT}/moved)

# Headers, archives and the two packages alone are installed.
file(GLOB_RECURSE strangers RELATIVE ${prefix} ${prefix}/*)
list(FILTER strangers EXCLUDE REGEX "^include/orv/[a-z]+/[A-Za-z0-9_./]+\\.h$|^lib/liborv_[a-z]+\\.a$")
list(FILTER strangers EXCLUDE REGEX "^lib/cmake/Orv/[A-Za-z-]+\\.cmake$|^lib/pkgconfig/orv\\.pc$")
if(strangers)
  message(FATAL_ERROR "installed, but neither a header nor a library nor a package: ${strangers}")
endif()

# With pkg-config, which knows every library.
file(MAKE_DIRECTORY ${OUT}/outside)
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
run(pkg-config --cflags --libs orv)
separate_arguments(flags UNIX_COMMAND "${output}")
file(GLOB archives RELATIVE ${prefix}/lib ${prefix}/lib/*.a)
foreach(archive IN LISTS archives)
  string(REGEX REPLACE "^lib(.*)\\.a$" "-l\\1" flag ${archive})
  if(NOT flag IN_LIST flags)
    message(FATAL_ERROR "pkg-config does not know ${archive}: ${flags}")
  endif()
endforeach()
run(${CXX} -std=c++20 ${CMAKE_CURRENT_LIST_DIR}/outside/main.cpp ${flags} -o ${OUT}/outside/with-pkg-config)
run(${OUT}/outside/with-pkg-config)

# With find_package.
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/outside -B ${OUT}/outside/build -G Ninja
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${OUT}/outside/build)
run(${OUT}/outside/build/outside)
message(STATUS "${output}")
