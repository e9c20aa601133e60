# What `cmake --install` lays down, in two components: runtime (the library) and development (header, link
# names, CMake package, pkg-config file, documentation). Everything finds its neighbours from where it
# stands, so an installed tree may be moved.
include(CMakePackageConfigHelpers)

install(TARGETS Trelvanix EXPORT TrelvanixTargets
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/include/trelvanix.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
if(WIN32)
  # From it every toolchain makes an import library of its own kind.
  install(FILES ${PROJECT_BINARY_DIR}/src/trelvanix.def
    DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME Trelvanix.def COMPONENT development)
endif()

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/Trelvanix)
install(EXPORT TrelvanixTargets
  FILE TrelvanixConfig.cmake NAMESPACE Trelvanix:: DESTINATION ${packageFolder} COMPONENT development)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TrelvanixConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TrelvanixConfigVersion.cmake
  DESTINATION ${packageFolder} COMPONENT development)

# The way from the .pc file's folder up to the prefix depends on how deep the library folder lies, which on
# Debian is lib/x86_64-linux-gnu. Folders given as absolute paths stay where they are.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(pkgConfigPrefix ${CMAKE_INSTALL_PREFIX})
  set(pkgConfigLibraryFolder ${CMAKE_INSTALL_FULL_LIBDIR})
  set(pkgConfigIncludeFolder ${CMAKE_INSTALL_FULL_INCLUDEDIR})
else()
  file(RELATIVE_PATH wayUp /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  string(REGEX REPLACE "/$" "" wayUp ${wayUp})
  set(pkgConfigPrefix \${pcfiledir}/${wayUp})
  set(pkgConfigLibraryFolder \${prefix}/${CMAKE_INSTALL_LIBDIR})
  set(pkgConfigIncludeFolder \${prefix}/${CMAKE_INSTALL_INCLUDEDIR})
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/trelvanix.pc.in ${PROJECT_BINARY_DIR}/trelvanix.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/trelvanix.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TRELVANIX_DEBIAN_PACKAGES)
  set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/libtrelvanix-dev)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
if(NOT TRELVANIX_DEBIAN_PACKAGES)
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
endif()
