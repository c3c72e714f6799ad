# The NDK's own toolchain. The presets say what is asked of it.
set(ndk "$ENV{ANDROID_NDK_HOME}")
if(NOT EXISTS "${ndk}/build/cmake/android.toolchain.cmake" OR NOT EXISTS "${ndk}/source.properties")
  message(FATAL_ERROR "ANDROID_NDK_HOME is \"${ndk}\", which is no folder of an Android NDK "
    "(source.properties or build/cmake/android.toolchain.cmake is missing). Set it to an NDK's folder, r26 or newer.")
endif()
file(STRINGS "${ndk}/source.properties" revision REGEX "^Pkg\\.Revision")
string(REGEX MATCH "[0-9]+" revision "${revision}")
set(ORVEX_NDK_VERSION "${revision}" CACHE INTERNAL "Major version of the NDK")
include("${ndk}/build/cmake/android.toolchain.cmake")
