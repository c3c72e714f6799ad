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

# orvex_missing(TARGET TOLD): in place of a target that lacks something; only who builds it is stopped.
function(orvex_missing target told)
  add_custom_target(${target} ALL COMMAND ${CMAKE_COMMAND} -E echo ${told} COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
endfunction()

# Android's logging interface: the NDK's on a phone, on Debian the real library too.
if(ANDROID)
  add_library(android_log INTERFACE IMPORTED GLOBAL)
  target_link_libraries(android_log INTERFACE log)
else()
  orvex_find(android_log android/log.h log android-liblog-dev)
endif()

# Mbed TLS's cryptography with its PSA interface; psa_crypto_static to be linked in.
if(ANDROID OR ORVEX_MBEDTLS_SOURCE)
  orvex_mbedtls_from_source(psa_crypto "${ORVEX_MBEDTLS_SOURCE}")
  add_library(psa_crypto_static ALIAS psa_crypto)
else()
  orvex_find(psa_crypto psa/crypto.h mbedcrypto libmbedtls-dev)
  orvex_find(psa_crypto_static psa/crypto.h libmbedcrypto.a libmbedtls-dev)
endif()
