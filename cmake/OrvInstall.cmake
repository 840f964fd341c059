# Installs every library with its headers, a CMake package (find_package(Orv)) and a pkg-config file (orv.pc).
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY ORV_LIBRARIES)
install(TARGETS ${libraries} EXPORT OrvTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(library IN LISTS libraries)
  get_target_property(folder ${library} SOURCE_DIR)
  file(RELATIVE_PATH room ${PROJECT_SOURCE_DIR} ${folder})
  install(DIRECTORY ${folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orv/${room} FILES_MATCHING PATTERN "*.h")
endforeach()
install(EXPORT OrvTargets NAMESPACE Orv:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Orv)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OrvConfig.cmake.in ${PROJECT_BINARY_DIR}/OrvConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Orv)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OrvConfig.cmake ${PROJECT_BINARY_DIR}/OrvConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Orv)

# The pkg-config file links the floors below the adapters, highest first, and finds its prefix from its own place.
set(pcLibraries ${libraries})
list(FILTER pcLibraries EXCLUDE REGEX "platform|icu")
list(REVERSE pcLibraries)
list(TRANSFORM pcLibraries PREPEND "-l")
list(JOIN pcLibraries " " pcLibraries)
file(RELATIVE_PATH pcPrefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pcPrefix ${pcPrefix})
configure_file(${PROJECT_SOURCE_DIR}/cmake/orv.pc.in ${PROJECT_BINARY_DIR}/orv.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orv.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET orv_host)
  # Headers go with the static libraries. Component "shared": the two libraries and fmx.pc, with which an application is
  # linked with the host framework alone.
  install(TARGETS orv_host orv_shared_library EXPORT OrvTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT shared)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/fmx.pc.in ${PROJECT_BINARY_DIR}/fmx.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/fmx.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT shared)
endif()
