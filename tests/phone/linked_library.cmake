# A library as it is linked for phones: what it needs, how it is laid out, how large it is. With BRANCH_PROTECTION it
# was compiled for arm64 with marks of where a jump may land and with signed return addresses.
cmake_minimum_required(VERSION 3.25)
set(page 16384)
set(largest 512000) # bytes of the file

set(ENV{LC_ALL} C)
execute_process(COMMAND ${READELF} --wide --dynamic --dyn-syms --program-headers --section-headers --notes
  ${LIBRARY}
  OUTPUT_VARIABLE elf COMMAND_ERROR_IS_FATAL ANY)

string(REPLACE "[" "<" elf "${elf}")
string(REPLACE "]" ">" elf "${elf}")
foreach(what
    "\\(SONAME\\)[^\n]*<libOrvex_Alignment\\.so>" # a name without a version
    "\\(FLAGS_1\\)[^\n]*NOW" # bound when loaded
    " UND __stack_chk_fail" # stack canaries
    "\n +GNU_RELRO " # relocations become read-only
    "\n +GNU_STACK +(0x0+ +)+RW ")
  if(NOT elf MATCHES "${what}")
    message(SEND_ERROR "nothing matches ${what} in ${elf}")
  endif()
endforeach()
if(elf MATCHES "\\(TEXTREL\\)|\\((RPATH|RUNPATH)\\)[^\n]*|\n +LOAD [^\n]* RWE [^\n]*|[^\n]* \\.z?debug_[^\n]*")
  message(SEND_ERROR "relocated code, search path, writable code or debug information: ${CMAKE_MATCH_0}")
endif()

# One object without the note takes it from the whole library, and the phone then loads it unprotected.
if(BRANCH_PROTECTION AND NOT elf MATCHES "feature: BTI, PAC")
  message(SEND_ERROR "the note for BTI and PAC was lost in the link; with -Wl,-z,force-bti the linker names the "
    "objects that lack it")
endif()

# Here the libraries' names carry versions, and the C library's loader stands beside it.
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*<[^>]+>" needed "${elf}")
foreach(line IN LISTS needed)
  if(NOT line MATCHES "<((libc|libm|libdl|liblog)\\.so[.0-9]*|ld-linux-[^>]*)>")
    message(SEND_ERROR "needs what phones lack: ${line}")
  endif()
endforeach()

string(REGEX MATCHALL "\n +LOAD [^\n]+" segments "${elf}")
foreach(segment IN LISTS segments)
  string(REGEX MATCH "0x[0-9a-f]+ *$" alignment "${segment}")
  math(EXPR rest "${alignment} % ${page}")
  if(rest OR NOT alignment)
    message(SEND_ERROR "not aligned to pages of ${page} bytes: ${segment}")
  endif()
endforeach()
file(SIZE ${LIBRARY} size)
if(NOT segments OR size GREATER largest)
  message(SEND_ERROR "nothing to load, or ${size} bytes, allowed are ${largest}")
endif()
message(STATUS "${size} bytes")
