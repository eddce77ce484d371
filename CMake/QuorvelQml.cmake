# Builds a folder of views: one QML module and its C++ in one static library.

set(QT_QML_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml)

# Compiled views make a start faster and a build slower. Otherwise, the engine compiles them itself.
option(QUORVEL_COMPILE_QML "Compile the views ahead of time" ON)
set(QUORVEL_QML_OPTIONS)
if(NOT QUORVEL_COMPILE_QML)
  set(QUORVEL_QML_OPTIONS NO_CACHEGEN)
endif()

# quorvel_qml_module(NAME URI Quorvel.X QML_FILES ... [SOURCES ...] [IMPORTS ...] [LINKS ...])
# A target that links NAME can import the URI: the types and files of the module are in the program.
function(quorvel_qml_module name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "URI" "QML_FILES;SOURCES;IMPORTS;LINKS")
  # An importer sees a flat module, in whatever folders its files are.
  foreach(view ${arg_QML_FILES})
    cmake_path(GET view FILENAME file_name)
    set_source_files_properties(${view} PROPERTIES QT_RESOURCE_ALIAS ${file_name})
  endforeach()
  qt_add_library(${name} STATIC)
  qt_add_qml_module(${name}
    URI ${arg_URI}
    VERSION 1.0
    RESOURCE_PREFIX /qt-project.org/imports # where every engine looks
    IMPORT_PATH ${QT_QML_OUTPUT_DIRECTORY}
    DEPENDENCIES QtQuick
    IMPORTS ${arg_IMPORTS}
    QML_FILES ${arg_QML_FILES}
    SOURCES ${arg_SOURCES}
    ${QUORVEL_QML_OPTIONS})
  # Byte code is the same in each build. The C++ that Qt would make is not; it is 0.5 MB larger, and
  # opens no sooner.
  set_target_properties(${name} PROPERTIES QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
  # The generated registration includes its headers without their folders.
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
