# How a folder of views is built: one QML module and its C++ in one static library.

set(QT_QML_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml)

# Compiling what the engine would compile by itself makes a start faster, and a build slower.
option(QUORVEL_COMPILE_QML "Compile the views ahead of time" ON)
set(QUORVEL_QML_OPTIONS)
if(NOT QUORVEL_COMPILE_QML)
  set(QUORVEL_QML_OPTIONS NO_CACHEGEN)
else()
  get_target_property(QUORVEL_QMLCACHEGEN Qt6::qmlcachegen LOCATION)
  set(in_order ${PROJECT_BINARY_DIR}/qmlcachegen)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/qmlcachegen.in ${in_order} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  get_target_property(configurations Qt6::qmlcachegen IMPORTED_CONFIGURATIONS)
  foreach(configuration ${configurations})
    set_target_properties(Qt6::qmlcachegen PROPERTIES
      IMPORTED_LOCATION_${configuration} ${in_order})
  endforeach()
endif()

# quorvel_qml_module(NAME URI Quorvel.X QML_FILES ... [SOURCES ...] [IMPORTS ...] [LINKS ...])
# Whoever links NAME can import the URI: its types and files are inside the program.
function(quorvel_qml_module name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "URI" "QML_FILES;SOURCES;IMPORTS;LINKS")
  # A module is flat to those who import it, whatever folders its files stand in.
  foreach(view ${arg_QML_FILES})
    cmake_path(GET view FILENAME file_name)
    set_source_files_properties(${view} PROPERTIES QT_RESOURCE_ALIAS ${file_name})
  endforeach()
  qt_add_library(${name} STATIC)
  qt_add_qml_module(${name}
    URI ${arg_URI}
    VERSION 1.0
    RESOURCE_PREFIX /qt-project.org/imports # where every engine looks by itself
    IMPORT_PATH ${QT_QML_OUTPUT_DIRECTORY}
    DEPENDENCIES QtQuick
    IMPORTS ${arg_IMPORTS}
    QML_FILES ${arg_QML_FILES}
    SOURCES ${arg_SOURCES}
    ${QUORVEL_QML_OPTIONS})
  # Our warnings are for what we write, not for what qmlcachegen does.
  get_target_property(sources ${name} SOURCES)
  list(FILTER sources INCLUDE REGEX "/qmlcache/")
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
  # The generated registration names its headers without their folder.
  set(folders ${arg_SOURCES})
  list(TRANSFORM folders REPLACE "[^/]+$" "")
  list(REMOVE_DUPLICATES folders)
  list(TRANSFORM folders PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_include_directories(${name} PRIVATE ${folders})
  target_link_libraries(${name}
    PUBLIC quorvel_base ${arg_LINKS} Qt6::Quick
    INTERFACE ${name}plugin)
  quorvel_use_precompiled(${name})
endfunction()
