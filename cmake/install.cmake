# What `cmake --install` lays down: of every library a component runtime_<folder>, and one component development
# (headers, link names, CMake package, pkg-config files, documentation). Everything finds its neighbours from where it
# stands, so an installed tree may be moved.
#
#   trelvanix_install(<prefix of components> <library folder> <documentation folder> [EXCLUDE_FROM_ALL])
#
# lays the same files out once more in other folders, for packages that want them there.
include(CMakePackageConfigHelpers)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TrelvanixConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)

function(trelvanix_install prefix libraryFolder documentationFolder)
  set(excluded ${ARGN})
  set(development COMPONENT ${prefix}development ${excluded})
  set(export Trelvanix_${prefix}targets)
  get_property(libraries GLOBAL PROPERTY trelvanixLibraries)
  foreach(library IN LISTS libraries)
    get_target_property(folder ${library} TRELVANIX_FOLDER)
    set(runtime COMPONENT ${prefix}runtime_${folder} ${excluded})
    install(TARGETS ${library} EXPORT ${export}
      RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ${runtime}
      LIBRARY DESTINATION ${libraryFolder} ${runtime} NAMELINK_COMPONENT ${prefix}development
      ARCHIVE DESTINATION ${libraryFolder} ${development})
    get_target_property(headers ${library} TRELVANIX_HEADERS)
    install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${development})
    if(WIN32)
      # From it every toolchain makes an import library of its own kind.
      get_target_property(definition ${library} TRELVANIX_DEFINITION)
      install(FILES ${definition} DESTINATION ${libraryFolder} RENAME ${library}.def ${development})
    endif()
  endforeach()

  set(packageFolder ${libraryFolder}/cmake/Trelvanix)
  install(EXPORT ${export}
    FILE TrelvanixConfig.cmake NAMESPACE Trelvanix:: DESTINATION ${packageFolder} ${development})
  install(FILES ${PROJECT_BINARY_DIR}/TrelvanixConfigVersion.cmake DESTINATION ${packageFolder} ${development})

  # The way from the .pc file's folder up to the prefix depends on how deep the library folder lies. Folders given
  # as absolute paths stay where they are.
  if(IS_ABSOLUTE "${libraryFolder}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(pkgConfigPrefix ${CMAKE_INSTALL_PREFIX})
    get_filename_component(pkgConfigLibraryFolder ${libraryFolder} ABSOLUTE BASE_DIR ${CMAKE_INSTALL_PREFIX})
    set(pkgConfigIncludeFolder ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  else()
    file(RELATIVE_PATH wayUp /prefix/${libraryFolder}/pkgconfig /prefix)
    string(REGEX REPLACE "/$" "" wayUp ${wayUp})
    set(pkgConfigPrefix \${pcfiledir}/${wayUp})
    set(pkgConfigLibraryFolder \${prefix}/${libraryFolder})
    set(pkgConfigIncludeFolder \${prefix}/${CMAKE_INSTALL_INCLUDEDIR})
  endif()
  foreach(library IN LISTS libraries)
    string(TOLOWER ${library} lowerName)
    get_target_property(version ${library} VERSION)
    set(file ${PROJECT_BINARY_DIR}/pkgconfig/${prefix}${lowerName}.pc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${file} @ONLY)
    install(FILES ${file}
      DESTINATION ${libraryFolder}/pkgconfig RENAME ${lowerName}.pc ${development})
  endforeach()

  install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${documentationFolder} ${development})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${documentationFolder} ${development})
endfunction()

trelvanix_install("" ${CMAKE_INSTALL_LIBDIR} ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
