# The release build defends itself against its own faults: stack canaries, checked copies, no writable tables of
# addresses, indirect jumps only where one may land. For everything the project builds; no result depends on it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT ORVEX_SANITIZE) # a sanitizer does this itself and more
  set(release $<CONFIG:Release>)
  add_compile_options($<${release}:-fstack-protector-strong>)
  add_compile_options($<${release}:-U_FORTIFY_SOURCE> $<${release}:-D_FORTIFY_SOURCE=2>)
  add_link_options($<${release}:-Wl,-z,relro> $<${release}:-Wl,-z,now> $<${release}:-Wl,-z,noexecstack>)
  # Those that a processor or a compiler may not have.
  foreach(flag -fstack-clash-protection -fcf-protection=full -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "ORVEX_HAS${flag}" known)
    set(CMAKE_REQUIRED_FLAGS -Werror) # clang only warns of those of another processor
    check_cxx_compiler_flag(${flag} ${known})
    unset(CMAKE_REQUIRED_FLAGS)
    if(${known})
      add_compile_options($<${release}:${flag}>)
    endif()
  endforeach()
endif()
