# expect_refused(TOLD command...): the command fails and says so. All that it says is left in `told`.
function(expect_refused expected)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE told)
  string(REGEX REPLACE "[ \n]+" " " told "${told}") # messages are wrapped
  string(FIND "${told}" "${expected}" place)
  if(result EQUAL 0 OR place EQUAL -1)
    message(SEND_ERROR "${expected}: not told, but\n${told}")
  endif()
  set(told "${told}" PARENT_SCOPE)
endfunction()
