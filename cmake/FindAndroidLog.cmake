# Android's logging interface: the NDK's on a phone; on Debian android-liblog-dev, whose header and library lie
# in a folder "android" under the usual ones.
find_path(AndroidLog_INCLUDE_DIR android/log.h PATH_SUFFIXES android)
find_library(AndroidLog_LIBRARY log PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(AndroidLog
  REQUIRED_VARS AndroidLog_LIBRARY AndroidLog_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "Install it with `make setup` (Debian package android-liblog-dev).")
mark_as_advanced(AndroidLog_INCLUDE_DIR AndroidLog_LIBRARY)
if(AndroidLog_FOUND AND NOT TARGET AndroidLog::log)
  add_library(AndroidLog::log UNKNOWN IMPORTED)
  set_target_properties(AndroidLog::log PROPERTIES IMPORTED_LOCATION ${AndroidLog_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${AndroidLog_INCLUDE_DIR})
endif()
