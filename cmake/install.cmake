# What `cmake --install` lays down: of every library a component runtime_<folder>, and one component development
# (headers, link names, CMake package, pkg-config files, documentation). Everything finds its neighbours from where it
# stands, so an installed tree may be moved.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY trelvanixLibraries)
foreach(library IN LISTS libraries)
  get_target_property(folder ${library} TRELVANIX_FOLDER)
  install(TARGETS ${library} EXPORT TrelvanixTargets
    RUNTIME COMPONENT runtime_${folder}
    LIBRARY COMPONENT runtime_${folder} NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
  get_target_property(headers ${library} TRELVANIX_HEADERS)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
  if(WIN32)
    # From it every toolchain makes an import library of its own kind.
    get_target_property(definition ${library} TRELVANIX_DEFINITION)
    install(FILES ${definition}
      DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME ${library}.def COMPONENT development)
  endif()
endforeach()

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
foreach(library IN LISTS libraries)
  string(TOLOWER ${library} lowerName)
  get_target_property(version ${library} VERSION)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/library.pc.in ${PROJECT_BINARY_DIR}/${lowerName}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${lowerName}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()

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
