# The two shared libraries. An application is linked with the host framework (libfmx: contracts, plain text, and the
# platform's adapters); the system (liborv) installs itself over it when it is loaded, by linking or by LD_PRELOAD. Both
# are made of the objects of the rooms, which the static libraries hold too. The framework's state lives in libfmx alone,
# which liborv shares with the application.

set(hostRooms rtl fmx platform)
set(orvRooms unicode calendar textlayout markup editing binding marzel)

# orv_shared(NAME FILE LOAD ROOMS ...): libFILE out of the rooms' objects. LOAD, the source with what is done at
# loading, comes last: constructors run in the order of the objects.
function(orv_shared NAME FILE LOAD)
  cmake_parse_arguments(ARG "" "" "ROOMS" ${ARGN})
  add_library(${NAME}_load OBJECT ${LOAD})
  target_link_libraries(${NAME}_load PRIVATE orv_build_flags)
  target_include_directories(${NAME}_load PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_features(${NAME}_load PRIVATE cxx_std_20)
  target_compile_definitions(${NAME}_load PRIVATE $<$<BOOL:${ORV_ASSERTIONS}>:ORV_ASSERTIONS>)
  list(TRANSFORM ARG_ROOMS REPLACE "(.+)" "$<TARGET_OBJECTS:orv_\\1>" OUTPUT_VARIABLE objects)
  add_library(${NAME} SHARED ${objects} $<TARGET_OBJECTS:${NAME}_load>)
  set_target_properties(${NAME} PROPERTIES OUTPUT_NAME ${FILE} VERSION ${PROJECT_VERSION} LINKER_LANGUAGE CXX
    SOVERSION ${PROJECT_VERSION_MAJOR} LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  target_include_directories(${NAME} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orv>)
  target_compile_features(${NAME} PUBLIC cxx_std_20)
  target_compile_definitions(${NAME} PUBLIC $<$<BOOL:${ORV_ASSERTIONS}>:ORV_ASSERTIONS>)
  target_link_libraries(${NAME} PRIVATE $<BUILD_INTERFACE:orv_build_flags>)
  # The classes that it makes stay in force to the end of the process, so its code must.
  target_link_options(${NAME} PRIVATE -Wl,-z,nodelete)
endfunction()

orv_shared(orv_host fmx ${PROJECT_SOURCE_DIR}/platform/HostLoad.cpp ROOMS ${hostRooms})
foreach(package IN ITEMS CAIRO ENCHANT FREETYPE FONTCONFIG HARFBUZZ SDL2 PNG)  # found for the adapters
  target_link_libraries(orv_host PRIVATE ${${package}_LDFLAGS})
endforeach()
add_library(Orv::host ALIAS orv_host)
set_target_properties(orv_host PROPERTIES EXPORT_NAME host)

orv_shared(orv_shared_library orv ${PROJECT_SOURCE_DIR}/runtime/Load.cpp ROOMS ${orvRooms})
target_link_libraries(orv_shared_library PUBLIC orv_host)
# It is needed for what it does when it is loaded, even where the program calls nothing of it.
target_link_options(orv_shared_library INTERFACE -Wl,--no-as-needed)
add_library(Orv::orv ALIAS orv_shared_library)
set_target_properties(orv_shared_library PROPERTIES EXPORT_NAME orv)
