# Packages, made by cpack from any build: an archive (.tar.gz, for Windows .zip), or with `cpack -G DEB` Debian
# packages.
string(TOLOWER ${CMAKE_SYSTEM_NAME} packageSystem)
set(CPACK_PACKAGE_NAME trelvanix)
set(CPACK_PACKAGE_VENDOR "The Trelvanix authors")
set(CPACK_PACKAGE_CONTACT "The Trelvanix authors <maintainers@trelvanix.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Numerical signal processing behind a C interface")
set(CPACK_PACKAGE_FILE_NAME trelvanix-${PROJECT_VERSION}-${packageSystem}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
list(TRANSFORM trelvanixProducts PREPEND runtime_ OUTPUT_VARIABLE runtimeComponents)
set(CPACK_COMPONENTS_ALL ${runtimeComponents} development)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()
# Compilers of Debian and its descendants name the folder of the architecture's libraries.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_LIBRARY_ARCHITECTURE)
  include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
endif()
include(CPack)
