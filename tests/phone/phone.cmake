# The library as it is linked for phones, with this system's compiler and libraries.
if(NOT ORVEX_SANITIZE)
  orvex_shared_library(phone_library)
  target_sources(phone_library PRIVATE $<TARGET_OBJECTS:orvex_objects>)
  target_link_libraries(phone_library PRIVATE psa_crypto_static android_log m)
  orvex_phone_link(phone_library)

  orvex_symbols_test(phone_exported_symbols phone_library)
  add_test(NAME phone_linked_library COMMAND ${CMAKE_COMMAND} -DREADELF=${CMAKE_READELF}
    -DLIBRARY=$<TARGET_FILE:phone_library> -P ${CMAKE_CURRENT_SOURCE_DIR}/phone/linked_library.cmake)
  add_test(NAME phone_platform COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DSOURCE=${PROJECT_SOURCE_DIR}
    -DLIBRARY=$<TARGET_FILE:phone_library> -DLIST=${CMAKE_CURRENT_SOURCE_DIR}/phone/platform.list
    -P ${CMAKE_CURRENT_SOURCE_DIR}/phone/platform.cmake)
  add_test(NAME phone_aar COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DREADELF=${CMAKE_READELF}
    -DNM=${CMAKE_NM} -DLIBRARY=$<TARGET_FILE:phone_library> -DUNFIT=$<TARGET_FILE:Orvex_Alignment>
    -DWORK=${CMAKE_CURRENT_BINARY_DIR}/phone_aar -P ${CMAKE_CURRENT_SOURCE_DIR}/phone/aar.cmake)
endif()

add_test(NAME phone_configure_errors COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}
  -DWORK=${CMAKE_CURRENT_BINARY_DIR}/phone_configure_errors -DC=${CMAKE_C_COMPILER} -DCXX=${CMAKE_CXX_COMPILER}
  -P ${CMAKE_CURRENT_SOURCE_DIR}/phone/configure_errors.cmake)
