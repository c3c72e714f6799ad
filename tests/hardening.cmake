# The release build's defences, as they stand in the built file (library or program); whether each of its objects has
# them does not show there.
set(ENV{LC_ALL} C)
execute_process(COMMAND ${READELF} --wide --program-headers --dynamic --dyn-syms ${FILE}
  OUTPUT_VARIABLE elf COMMAND_ERROR_IS_FATAL ANY)
set(wanted "GNU_RELRO" "GNU_STACK[^\n]* RW " "BIND_NOW" "UND __stack_chk_fail@" "UND __[a-z]*_chk@"
  "file type is DYN")
if(COMPILER STREQUAL "GNU")
  list(APPEND wanted "UND __[a-z]*printf_chk@") # from level 2 on; clang has no checked printf
endif()
foreach(pattern IN LISTS wanted)
  if(NOT elf MATCHES "${pattern}")
    message(SEND_ERROR "${FILE}: nothing matches \"${pattern}\"")
  endif()
endforeach()
