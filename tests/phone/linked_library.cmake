# A library as it is linked for phones: what it needs, how it is laid out, how large it is.
cmake_minimum_required(VERSION 3.25)
set(page 16384)
set(largest 512000) # bytes in memory that come from the file

set(ENV{LC_ALL} C)
execute_process(COMMAND ${READELF} --wide --dynamic --program-headers ${LIBRARY} OUTPUT_VARIABLE elf
  COMMAND_ERROR_IS_FATAL ANY)

function(require what pattern)
  if(NOT elf MATCHES "${pattern}")
    message(SEND_ERROR "${what}: nothing matches ${pattern}")
  endif()
endfunction()
function(refuse what pattern)
  if(elf MATCHES "${pattern}")
    message(SEND_ERROR "${what}: ${CMAKE_MATCH_0}")
  endif()
endfunction()

string(REPLACE "[" "<" elf "${elf}")
string(REPLACE "]" ">" elf "${elf}")
require("name without a version" "\\(SONAME\\)[^\n]*<libOrvex_Alignment\\.so>")
require("bound when loaded" "\\(FLAGS_1\\)[^\n]*NOW")
require("relocations become read-only" "\n +GNU_RELRO ")
require("stack" "\n +GNU_STACK +0x0+ +0x0+ +0x0+ +0x0+ +0x0+ +RW ")
refuse("relocations in the code" "TEXTREL")
refuse("search path" "\\((RPATH|RUNPATH)\\)[^\n]*")
refuse("writable code" "\n +LOAD [^\n]* RWE [^\n]*")

# Here the libraries' names carry versions, and the C library's loader stands beside it.
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*<[^>]+>" needed "${elf}")
foreach(line IN LISTS needed)
  if(NOT line MATCHES "<((libc|libm|libdl|liblog)\\.so[.0-9]*|ld-linux-[^>]*)>")
    message(SEND_ERROR "needs what phones lack: ${line}")
  endif()
endforeach()

string(REGEX MATCHALL "\n +LOAD [^\n]+" segments "${elf}")
set(size 0)
foreach(segment IN LISTS segments)
  string(REGEX MATCHALL "0x[0-9a-f]+" numbers "${segment}") # offset, two addresses, two sizes, alignment
  list(GET numbers 3 in_file)
  list(GET numbers -1 alignment)
  math(EXPR size "${size} + ${in_file}")
  math(EXPR rest "${alignment} % ${page}")
  if(rest OR NOT alignment)
    message(SEND_ERROR "not aligned to pages of ${page} bytes: ${segment}")
  endif()
endforeach()
if(size EQUAL 0 OR size GREATER largest)
  message(SEND_ERROR "${size} bytes to load, allowed are ${largest}")
endif()
message(STATUS "${size} bytes to load")
