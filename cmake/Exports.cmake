# The version script is made from the one list of exported symbols.
function(orvex_version_script list script)
  file(STRINGS ${list} symbols REGEX "^[^#]")
  list(JOIN symbols ";\n    " symbols)
  file(CONFIGURE OUTPUT ${script} CONTENT "{\n  global:\n    @symbols@;\n  local:\n    *;\n};\n" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
endfunction()
