# How every target of this tree is built: one target a folder. What the program and its modules
# both use is a part of the shared library `quorvel_base`; everything else is a static library.

add_library(quorvel_options INTERFACE)
target_compile_features(quorvel_options INTERFACE cxx_std_20)
target_include_directories(quorvel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(quorvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# A unity build reads several files as one. gcc then takes a file's private types for those of a
# header.
if(CMAKE_UNITY_BUILD)
  target_compile_options(quorvel_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
# A release is small: people wait for the screen, the disk and the web, and for our own code only
# where it loops over all visits. The linker can leave out a function that has a section of its own.
set(optimised_for_size $<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:Clang>>)
target_compile_options(quorvel_options INTERFACE
  $<$<CONFIG:Release>:-ffunction-sections;-fdata-sections>
  $<$<AND:${optimised_for_size},$<NOT:$<BOOL:$<TARGET_PROPERTY:QUORVEL_LOOPS>>>>:-Os>)
target_compile_definitions(quorvel_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_URL_CAST_FROM_STRING)
set(CMAKE_CXX_EXTENSIONS OFF)

set(QUORVEL_SANITIZERS "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")
if(QUORVEL_SANITIZERS)
  add_compile_options(-fsanitize=${QUORVEL_SANITIZERS} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUORVEL_SANITIZERS})
  # For this check, clang 14 puts data in front of each function. It cannot do so for a coroutine.
  add_compile_options($<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>)
endif()

# A test runs once or twice, so that a fast build counts more than fast code.
set(QUORVEL_TEST_OPTIONS -O0)
# Only a hang takes this long, even on a busy machine and with sanitizers.
set(QUORVEL_TEST_SECONDS 1200)

# Additions to a test's environment in a sanitized build. A leak fails the test, too.
set(QUORVEL_TEST_ENVIRONMENT)
if(QUORVEL_SANITIZERS)
  # Where clang 14 looks for leaks in the memory of a thread that is ending, it crashes now and
  # then: intercept_tls_get_addr=0 keeps it from that.
  set(asan_options detect_leaks=1:detect_stack_use_after_return=1:intercept_tls_get_addr=0)
  set(QUORVEL_TEST_ENVIRONMENT
    ASAN_OPTIONS=${asan_options}
    UBSAN_OPTIONS=print_stacktrace=1)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# What nearly every file includes. What is released is built without: it shows whether each file of
# the program includes what it needs.
option(QUORVEL_PRECOMPILE_HEADERS "Read common headers once, not with every file" ON)
set(QUORVEL_COMMON_HEADERS
  <QAbstractItemModel> <QCoreApplication> <QDateTime> <QDir> <QFile> <QHash> <QList> <QObject>
  <QPointer> <QProcessEnvironment> <QSet> <QString> <QStringList> <QTemporaryDir> <QThread>
  <QTimer> <QUrl> <QUuid> <QVariant> <QCoroTask>
  <algorithm> <chrono> <functional> <map> <memory> <optional> <variant> <vector>)

# quorvel_precompile(NAME)
# Makes the target precompile them for other targets.
function(quorvel_precompile name)
  target_link_libraries(${name} PRIVATE quorvel_options Qt6::Core QCoro6::Core)
  target_compile_options(${name} PRIVATE
    $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_precompile_headers(${name} PRIVATE ${QUORVEL_COMMON_HEADERS})
endfunction()

if(QUORVEL_PRECOMPILE_HEADERS)
  add_library(quorvel_headers STATIC EXCLUDE_FROM_ALL
    ${CMAKE_CURRENT_LIST_DIR}/PrecompiledHeaders.cpp)
  quorvel_precompile(quorvel_headers)
endif()

# quorvel_use_precompiled(NAME)
# For a library that is compiled with the same options.
function(quorvel_use_precompiled name)
  if(QUORVEL_PRECOMPILE_HEADERS)
    target_precompile_headers(${name} REUSE_FROM quorvel_headers)
  endif()
endfunction()

# quorvel_moc(NAME source...)
# Does the work of AUTOMOC for a target whose sources are known: moc reads each header, and each
# test's own file, which includes its "*.moc". AUTOMOC runs two programs for each target to find
# them, which takes a quarter of a build with this many targets. The output for the headers is
# compiled as one file.
function(quorvel_moc name)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name}_moc)
  file(MAKE_DIRECTORY ${folder})
  set(all_mocs)
  foreach(source ${ARGN})
    cmake_path(GET source STEM base)
    cmake_path(ABSOLUTE_PATH source)
    if(source MATCHES "\\.h$")
      set(output ${folder}/moc_${base}.cpp)
      string(APPEND all_mocs "#include \"moc_${base}.cpp\"\n")
    elseif(source MATCHES "Test\\.cpp$")
      set(output ${folder}/${base}.moc)
    else()
      continue()
    endif()
    add_custom_command(OUTPUT ${output}
      COMMAND Qt6::moc --no-notes -o ${output} ${source}
      DEPENDS ${source} VERBATIM)
    set_source_files_properties(${output} PROPERTIES HEADER_FILE_ONLY ON)
    target_sources(${name} PRIVATE ${output})
  endforeach()
  if(all_mocs)
    file(CONFIGURE OUTPUT ${folder}/mocs.cpp CONTENT "${all_mocs}" @ONLY)
    target_sources(${name} PRIVATE ${folder}/mocs.cpp)
  endif()
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_include_directories(${name} PRIVATE ${folder})
endfunction()

# All other targets link it; its parts add themselves.
add_library(quorvel_base SHARED)
set(QUORVEL_BASE_LINKS quorvel_options QCoro6::Core Qt6::Core Qt6::DBus)
target_link_libraries(quorvel_base PUBLIC ${QUORVEL_BASE_LINKS})
set_target_properties(quorvel_base PROPERTIES
  OUTPUT_NAME quorvel
  LINKER_LANGUAGE CXX
  AUTOMOC OFF)

# quorvel_part(NAME SOURCES ... [LINKS ...])
# A folder of the shared library.
function(quorvel_part name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} OBJECT ${arg_SOURCES})
  quorvel_moc(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${QUORVEL_BASE_LINKS} ${arg_LINKS})
  target_sources(quorvel_base PRIVATE $<TARGET_OBJECTS:${name}>)
  target_link_libraries(quorvel_base PRIVATE ${arg_LINKS})
  quorvel_use_precompiled(${name})
endfunction()

# quorvel_library(NAME SOURCES ... [LINKS ...] [PRIVATE_LINKS ...])
function(quorvel_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;PRIVATE_LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  quorvel_moc(${name} ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC quorvel_base ${arg_LINKS} PRIVATE ${arg_PRIVATE_LINKS})
  quorvel_use_precompiled(${name})
endfunction()

# quorvel_tests_library(NAME SOURCES ... [LINKS ...])
# Code that several tests share. It is compiled once, with the options of tests.
function(quorvel_tests_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  quorvel_moc(${name} ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC quorvel_base ${arg_LINKS} Qt6::Test)
  target_compile_options(${name} PRIVATE ${QUORVEL_TEST_OPTIONS})
  target_precompile_headers(${name} REUSE_FROM quorvel_tests_headers)
  set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
endfunction()

# quorvel_test(NAME SOURCES ... LINKS ... [LAUNCHER ...] [LABELS ...])
# One Qt Test program, run without a display and with folders of its own.
function(quorvel_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;LAUNCHER;LABELS")
  add_executable(${name} ${arg_SOURCES})
  quorvel_moc(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE quorvel_base ${arg_LINKS} Qt6::Test)
  target_compile_options(${name} PRIVATE ${QUORVEL_TEST_OPTIONS})
  target_precompile_headers(${name} REUSE_FROM quorvel_tests_headers)
  set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${name}>)
  set(home ${PROJECT_BINARY_DIR}/tests/homes/${name})
  file(MAKE_DIRECTORY ${home}/run)
  file(CHMOD ${home}/run PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set(environment QT_QPA_PLATFORM=offscreen HOME=${home} XDG_RUNTIME_DIR=${home}/run
      XDG_DATA_HOME=${home}/data XDG_CONFIG_HOME=${home}/config XDG_CACHE_HOME=${home}/cache
      ${QUORVEL_TEST_ENVIRONMENT})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${QUORVEL_TEST_SECONDS} LABELS "${arg_LABELS}" ENVIRONMENT "${environment}")
endfunction()

# Always the system's Python: the one first on PATH may lack the modules that Debian installs.
set(QUORVEL_PYTHON /usr/bin/python3 CACHE FILEPATH "Python with the dbus and gi modules")

# The folders of the tests' own Python modules.
set(QUORVEL_PYTHON_FOLDERS
  Support/Desktop Support/Session World World/Daemons World/Web Desktop)
list(TRANSFORM QUORVEL_PYTHON_FOLDERS PREPEND ${PROJECT_SOURCE_DIR}/Tests/)
list(JOIN QUORVEL_PYTHON_FOLDERS ":" QUORVEL_PYTHONPATH)

# Lets a test start a daemon of the tests' world, a real one or a mock.
function(quorvel_beside_daemon name)
  target_compile_definitions(${name} PRIVATE
    QUORVEL_PYTHON="${QUORVEL_PYTHON}" QUORVEL_DAEMONS="${PROJECT_SOURCE_DIR}/Tests/World/Daemons")
  set_property(TEST ${name} APPEND PROPERTY
    ENVIRONMENT PYTHONPATH=${QUORVEL_PYTHONPATH})
endfunction()

# quorvel_python_test(NAME SCRIPT file [ARGUMENTS ...] [LABELS ...] [ENVIRONMENT ...])
function(quorvel_python_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SCRIPT" "ARGUMENTS;LABELS;ENVIRONMENT")
  add_test(NAME ${name}
    COMMAND ${QUORVEL_PYTHON} -B ${CMAKE_CURRENT_SOURCE_DIR}/${arg_SCRIPT} ${arg_ARGUMENTS})
  set(environment
      PYTHONPATH=${QUORVEL_PYTHONPATH}
      ${QUORVEL_TEST_ENVIRONMENT} ${arg_ENVIRONMENT})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${QUORVEL_TEST_SECONDS} LABELS "${arg_LABELS}" ENVIRONMENT "${environment}")
endfunction()

# quorvel_program_test(NAME SCRIPT file ... [WHOLE_STACKS]), otherwise as quorvel_python_test.
# The test needs only the program and the files that are packaged with it. Some libraries keep no
# frame pointers. With WHOLE_STACKS, leaks are traced through those, too, so that a known leak is
# recognised. This makes the program several times slower.
function(quorvel_program_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg WHOLE_STACKS "" "")
  quorvel_python_test(${name} ${arg_UNPARSED_ARGUMENTS})
  set(leaks print_suppressions=0:suppressions=${PROJECT_SOURCE_DIR}/Tests/Support/known_leaks.txt)
  if(arg_WHOLE_STACKS)
    string(APPEND leaks :fast_unwind_on_malloc=0)
  endif()
  set_property(TEST ${name} APPEND PROPERTY LABELS program)
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT
    QUORVEL_PROGRAM=$<TARGET_FILE:quorvel> LSAN_OPTIONS=${leaks})
endfunction()
