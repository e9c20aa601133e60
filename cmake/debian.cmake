# A Debian package for every library, as libtrelvanix1, whose number is that of the binary interface, and
# libtrelvanix-dev for all of them. They take components of their own, laid out as Debian has its files, which
# nothing else installs.
set(developmentPackage libtrelvanix-dev)
trelvanix_install(debian_ lib/${CMAKE_LIBRARY_ARCHITECTURE} ${CMAKE_INSTALL_DATAROOTDIR}/doc/${developmentPackage}
  EXCLUDE_FROM_ALL)
list(TRANSFORM trelvanixProducts PREPEND debian_runtime_ OUTPUT_VARIABLE debianComponents)
file(WRITE ${PROJECT_BINARY_DIR}/debian/components.cmake
"if(CPACK_GENERATOR STREQUAL \"DEB\")
  set(CPACK_COMPONENTS_ALL ${debianComponents} debian_development)
endif()
")
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/debian/components.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE trelvanix)

set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")

set(about "Trelvanix designs FIR and IIR filters, applies them, computes Fourier
transforms and finds polynomial roots, behind a flat C interface of twenty
functions.")
set(dependencies)
set(packages)
get_property(libraries GLOBAL PROPERTY trelvanixLibraries)
foreach(library IN LISTS libraries)
  get_target_property(folder ${library} TRELVANIX_FOLDER)
  get_target_property(version ${library} VERSION)
  get_target_property(soVersion ${library} SOVERSION)
  string(TOLOWER lib${library}${soVersion} package)
  string(TOUPPER DEBIAN_RUNTIME_${folder} component)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${component}_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_${component}_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/debian/triggers)
  set(CPACK_DEBIAN_${component}_DESCRIPTION "${about}
.
This package has the library ${library}.")
  list(APPEND dependencies "${package} (= ${PROJECT_VERSION})")
  list(APPEND packages ${package})
endforeach()
list(JOIN dependencies ", " dependencies)
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${developmentPackage})
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${dependencies}")
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_DESCRIPTION "${about}
.
This package has the headers, the CMake package and the pkg-config files.")

file(STRINGS ${PROJECT_SOURCE_DIR}/LICENSE copyrightLine REGEX "^Copyright ")
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX REPLACE "^MIT License\n\nCopyright [^\n]*\n\n" "" licence "${licence}")
string(REGEX REPLACE "\n$" "" licence "${licence}")
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence " ${licence}")
string(REGEX REPLACE "^Copyright \\(c\\) " "" copyrightHolder "${copyrightLine}")
file(WRITE ${PROJECT_BINARY_DIR}/debian/copyright
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Trelvanix

Files: *
Copyright: ${copyrightHolder}
License: Expat
${licence}
")

# The changes stand in CHANGELOG.md; Debian's own format says no more than the version.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${PROJECT_BINARY_DIR}/debian/changelog
"trelvanix (${PROJECT_VERSION}) stable; urgency=medium

  * Version ${PROJECT_VERSION}. The list of changes is CHANGELOG.md of the sources.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
execute_process(COMMAND gzip -9nf changelog
  WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/debian COMMAND_ERROR_IS_FATAL ANY)

function(trelvanix_install_debian_documents package component)
  install(FILES ${PROJECT_BINARY_DIR}/debian/copyright ${PROJECT_BINARY_DIR}/debian/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()
foreach(package component IN ZIP_LISTS packages debianComponents)
  trelvanix_install_debian_documents(${package} ${component})
endforeach()
trelvanix_install_debian_documents(${developmentPackage} debian_development)
