# Every build that optimises defends itself against its own faults: stack canaries, checked copies, no writable tables
# of addresses, marks where an indirect jump may land. For everything the project builds; no result depends on it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT ORVEX_SANITIZE) # a sanitizer does this itself and more
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  add_compile_options($<${optimised}:-fstack-protector-strong>)
  if(NOT "${CMAKE_C_FLAGS} ${CMAKE_CXX_FLAGS}" MATCHES "_FORTIFY_SOURCE") # a distributor's level stays
    add_compile_options($<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
  endif()
  add_link_options($<${optimised}:-Wl,-z,relro> $<${optimised}:-Wl,-z,now> $<${optimised}:-Wl,-z,noexecstack>)
  # Those that a processor or a compiler may not have.
  foreach(flag -fstack-clash-protection -fcf-protection=full -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "ORVEX_HAS${flag}" known)
    set(CMAKE_REQUIRED_FLAGS -Werror) # clang only warns of those of another processor
    check_cxx_compiler_flag(${flag} ${known})
    unset(CMAKE_REQUIRED_FLAGS)
    if(${known})
      add_compile_options($<${optimised}:${flag}>)
    endif()
  endforeach()
endif()
