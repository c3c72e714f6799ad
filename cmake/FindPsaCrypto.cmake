# Mbed TLS's cryptography library with its PSA interface.
find_path(PsaCrypto_INCLUDE_DIR psa/crypto.h)
find_library(PsaCrypto_LIBRARY mbedcrypto)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(PsaCrypto
  REQUIRED_VARS PsaCrypto_LIBRARY PsaCrypto_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "Install it with `make setup` (Debian package libmbedtls-dev).")
mark_as_advanced(PsaCrypto_INCLUDE_DIR PsaCrypto_LIBRARY)
if(PsaCrypto_FOUND AND NOT TARGET PsaCrypto::crypto)
  add_library(PsaCrypto::crypto UNKNOWN IMPORTED)
  set_target_properties(PsaCrypto::crypto PROPERTIES IMPORTED_LOCATION ${PsaCrypto_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${PsaCrypto_INCLUDE_DIR})
endif()
