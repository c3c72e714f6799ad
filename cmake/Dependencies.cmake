# orvex_find(TARGET HEADER LIBRARY PACKAGE): an imported target for a library that brings no CMake package. Some
# of them lie in a folder "android" under the usual include and library folders.
function(orvex_find target header library package)
  find_path(${target}_INCLUDE_DIR ${header} PATH_SUFFIXES android)
  find_library(${target}_LIBRARY ${library} PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
  mark_as_advanced(${target}_INCLUDE_DIR ${target}_LIBRARY)
  if(NOT ${target}_INCLUDE_DIR OR NOT ${target}_LIBRARY)
    message(FATAL_ERROR "<${header}> or lib${library} is missing: `make setup` installs both (${package}).")
  endif()
  add_library(${target} UNKNOWN IMPORTED GLOBAL)
  set_target_properties(${target} PROPERTIES IMPORTED_LOCATION ${${target}_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${${target}_INCLUDE_DIR})
endfunction()

# Android's logging interface: the NDK's on a phone, on Debian the real library too.
orvex_find(android_log android/log.h log android-liblog-dev)
# Mbed TLS's cryptography with its PSA interface.
orvex_find(psa_crypto psa/crypto.h mbedcrypto libmbedtls-dev)
