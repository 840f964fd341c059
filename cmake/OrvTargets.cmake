# What every target of the house shares: warnings, sanitizers, assertions, and source paths that name no machine.

add_library(orv_build_flags INTERFACE)
target_compile_options(orv_build_flags INTERFACE
  -Wall -Wextra -Wconversion -Wshadow
  $<$<BOOL:${ORV_WERROR}>:-Werror>
  $<$<CXX_COMPILER_ID:Clang>:-fconstexpr-steps=16777216>  # tables of 65536 entries are made at compile time
  # g++ 12 takes joined std::strings for overlapping or endless copies once it optimises them.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-stringop-overflow -Wno-stringop-overread>
  $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>  # no product replaces single functions of the libraries
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
# A compiler cache may hand the compiler paths relative to the build folder, in which it runs.
file(RELATIVE_PATH up ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
if(up)
  target_compile_options(orv_build_flags INTERFACE -ffile-prefix-map=${up}=)
endif()
if(ORV_SANITIZE)
  target_compile_options(orv_build_flags INTERFACE -fsanitize=${ORV_SANITIZE} -fno-omit-frame-pointer)
  target_link_options(orv_build_flags INTERFACE -fsanitize=${ORV_SANITIZE})
  if(ORV_SANITIZE MATCHES "undefined")
    target_compile_options(orv_build_flags INTERFACE -fno-sanitize-recover=undefined)
  endif()
endif()

# orv_library(NAME SOURCES ... [PUBLIC_LINK ...] [PRIVATE_LINK ...])
# Makes target orv_NAME with the alias Orv::NAME. Headers are included by their path from the root of the tree.
function(orv_library NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC_LINK;PRIVATE_LINK" ${ARGN})
  add_library(orv_${NAME} ${ARG_SOURCES})
  add_library(Orv::${NAME} ALIAS orv_${NAME})
  set_target_properties(orv_${NAME} PROPERTIES EXPORT_NAME ${NAME} OUTPUT_NAME orv_${NAME} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_include_directories(orv_${NAME} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orv>)
  target_compile_features(orv_${NAME} PUBLIC cxx_std_20)
  target_compile_definitions(orv_${NAME} PUBLIC $<$<BOOL:${ORV_ASSERTIONS}>:ORV_ASSERTIONS>)
  target_link_libraries(orv_${NAME} PUBLIC ${ARG_PUBLIC_LINK} PRIVATE $<BUILD_INTERFACE:orv_build_flags> ${ARG_PRIVATE_LINK})
  set_property(GLOBAL APPEND PROPERTY ORV_LIBRARIES orv_${NAME})
endfunction()

# orv_test(NAME SOURCES ... [LINK ...] [LABELS ...]): a GoogleTest program, its tests listed one by one in ctest.
function(orv_test NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;LABELS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINK} orv_build_flags GTest::gtest GTest::gtest_main)
  target_compile_definitions(${NAME} PRIVATE ORV_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ORV_BUILD_DIR="${PROJECT_BINARY_DIR}")
  if(TARGET orv_test_pch)
    target_precompile_headers(${NAME} REUSE_FROM orv_test_pch)
  endif()
  set(properties TIMEOUT 600)
  if(ARG_LABELS)
    list(APPEND properties LABELS ${ARG_LABELS})
  endif()
  gtest_discover_tests(${NAME} DISCOVERY_MODE PRE_TEST PROPERTIES ${properties})
endfunction()
