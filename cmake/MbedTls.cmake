# Mbed TLS's cryptography out of its source, for platforms that bring none.
function(orvex_mbedtls_from_source target folder)
  if(NOT EXISTS "${folder}/CMakeLists.txt" OR NOT EXISTS "${folder}/include/psa/crypto.h")
    message(FATAL_ERROR "ORVEX_MBEDTLS_SOURCE is \"${folder}\", which is no source folder of Mbed TLS "
      "(CMakeLists.txt or include/psa/crypto.h is missing). Unpack a release, 2.28 or 3.x, and name its folder: "
      "-DORVEX_MBEDTLS_SOURCE=/path/to/mbedtls")
  endif()
  set(CMAKE_POLICY_DEFAULT_CMP0048 NEW) # its version is its own
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # the settings below are its options
  set(ENABLE_PROGRAMS OFF)
  set(ENABLE_TESTING OFF)
  set(MBEDTLS_FATAL_WARNINGS OFF)
  set(USE_SHARED_MBEDTLS_LIBRARY OFF)
  set(USE_STATIC_MBEDTLS_LIBRARY ON)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  string(APPEND CMAKE_C_FLAGS " -ffunction-sections -fdata-sections") # the linker drops what is not called
  add_subdirectory(${folder} ${PROJECT_BINARY_DIR}/mbedtls EXCLUDE_FROM_ALL)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_link_libraries(${target} INTERFACE mbedcrypto)
endfunction()
