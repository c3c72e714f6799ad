# Compares the library's dynamic symbol table with the list of exports.
execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${table}")
list(TRANSFORM lines REPLACE " .*" "")
file(STRINGS ${LIST} expected REGEX "^[^#]")
list(SORT lines)
list(SORT expected)
if(NOT lines STREQUAL expected)
  message(FATAL_ERROR "exported:\n${lines}\nlisted:\n${expected}")
endif()
