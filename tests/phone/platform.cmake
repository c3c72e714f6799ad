# The source includes and the linked library calls nothing but what the list of the phone's platform names.
cmake_minimum_required(VERSION 3.25)
file(STRINGS ${LIST} allowed REGEX "^[^#]")
execute_process(COMMAND ${NM} --dynamic --undefined-only --format=posix ${LIBRARY} OUTPUT_VARIABLE called
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" called "${called}")
list(TRANSFORM called REPLACE "[@ ].*" "")

file(GLOB_RECURSE sources ${SOURCE}/src/*.cpp ${SOURCE}/src/*.h ${SOURCE}/include/*.h)
foreach(source IN LISTS sources)
  file(STRINGS ${source} lines REGEX "^ *# *include *<")
  list(TRANSFORM lines REPLACE "^[^<]*(<[^>]*>).*" "\\1")
  list(APPEND included ${lines})
endforeach()
if(NOT "malloc" IN_LIST called OR NOT "<cstdlib>" IN_LIST included)
  message(FATAL_ERROR "nothing was read out of ${LIBRARY} or ${SOURCE}")
endif()

set(lacking ${called} ${included})
list(REMOVE_DUPLICATES lacking)
list(REMOVE_ITEM lacking ${allowed})
if(lacking)
  message(FATAL_ERROR "Phones may lack these (see ${LIST}): ${lacking}")
endif()
