# usage: cmake -D NM=... -D PROGRAM=... -D OUTPUT=... -P SharedSymbols.cmake
# Writes a linker's version script for a module of the program: what the program defines as well is
# looked up by name, so that its definition is taken, and the rest is the module's own.
execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${PROGRAM}
  OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
# A line is "name type address size"; a name with an "@" is another library's.
string(REGEX MATCHALL "_Z[^ @\n]+ " names "${table}")
list(JOIN names ";\n    " names)
file(WRITE ${OUTPUT} "{\n  global:\n    qt_plugin_*;\n    ${names};\n  local:\n    *;\n};\n")
