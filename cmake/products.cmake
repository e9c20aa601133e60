# The libraries of the project. Each has a folder of its name below src/ (with its CMakeLists.txt, its sources and
# exports.txt, the list of exported names) and below tests/abi/ (the description of its binary interface).
set(trelvanixProducts classic)

# trelvanix_read_version(<variable> <header>): the version that a public header states, which is the one place
# for it.
function(trelvanix_read_version variable header)
  file(STRINGS ${header} lines REGEX "^#define [A-Z]+_VERSION_(MAJOR|MINOR|PATCH) ")
  list(TRANSFORM lines REPLACE "^#define [A-Z_]+ +([0-9]+).*$" "\\1")
  list(JOIN lines "." version)
  set(${variable} ${version} PARENT_SCOPE)
endfunction()

# trelvanix_add_objects(<target> <source>...): objects for the libraries, which the tests link too. Hidden
# visibility keeps the internals out of the exports.
function(trelvanix_add_objects target)
  add_library(${target} OBJECT ${ARGN})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target}
    PUBLIC ${PROJECT_SOURCE_DIR}/include
    INTERFACE ${PROJECT_SOURCE_DIR}/src
    PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(${target} PUBLIC ${trelvanixKernelDefinitions})
  target_link_libraries(${target} PRIVATE trelvanix_arithmetic trelvanix_warnings)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
endfunction()

# trelvanix_add_product(<library> HEADERS <header>... SOURCES <source>...), in the product's own folder: the
# objects of its sources, trelvanix_<folder>, and the shared library <library>, alias Trelvanix::<library>, made of
# them and of the core. The first header states the version.
function(trelvanix_add_product library)
  cmake_parse_arguments(product "" "" "HEADERS;SOURCES" ${ARGN})
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  string(TOLOWER ${library} lowerName)
  list(TRANSFORM product_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/include/)
  list(GET product_HEADERS 0 header)
  trelvanix_read_version(version ${header})
  string(REGEX MATCH "^[0-9]+" majorVersion ${version})
  trelvanix_add_objects(trelvanix_${folder} ${product_SOURCES})

  # The version script and the Windows export list are made from the one list of exported names.
  set(exportList ${CMAKE_CURRENT_SOURCE_DIR}/exports.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${exportList} ${header})
  file(STRINGS ${exportList} exportedNames)
  list(JOIN exportedNames ";\n    " versionScriptNames)
  file(CONFIGURE OUTPUT ${lowerName}.map
    CONTENT "{\n  global:\n    @versionScriptNames@;\n  local:\n    *;\n};\n" @ONLY)
  list(JOIN exportedNames "\n  " definitionNames)
  file(CONFIGURE OUTPUT ${lowerName}.def
    CONTENT "LIBRARY @library@\nEXPORTS\n  @definitionNames@\n" @ONLY)

  add_library(${library} SHARED)
  target_link_libraries(${library} PRIVATE trelvanix_${folder} trelvanix_core)
  add_library(Trelvanix::${library} ALIAS ${library})
  target_include_directories(${library} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(${library} PROPERTIES
    LINKER_LANGUAGE CXX
    VERSION ${version}
    SOVERSION ${majorVersion}
    TRELVANIX_FOLDER ${folder}
    TRELVANIX_HEADERS "${product_HEADERS}"
    TRELVANIX_EXPORT_LIST ${exportList})
  if(WIN32)
    set_target_properties(${library} PROPERTIES PREFIX "")
    target_sources(${library} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${lowerName}.def)
    set_target_properties(${library} PROPERTIES
      TRELVANIX_DEFINITION ${CMAKE_CURRENT_BINARY_DIR}/${lowerName}.def)
    if(MINGW)
      # The DLL brings its own runtime, so that it imports from system libraries alone.
      target_link_options(${library} PRIVATE -static)
    endif()
  elseif(NOT APPLE)
    target_link_options(${library} PRIVATE
      LINKER:--version-script=${CMAKE_CURRENT_BINARY_DIR}/${lowerName}.map)
    set_target_properties(${library} PROPERTIES
      LINK_DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/${lowerName}.map)
  endif()
  set_property(GLOBAL APPEND PROPERTY trelvanixLibraries ${library})
endfunction()
