# The NDK's own toolchain, with what the library asks of it.
set(ndk "$ENV{ANDROID_NDK_HOME}")
if(NOT EXISTS "${ndk}/build/cmake/android.toolchain.cmake")
  message(FATAL_ERROR "ANDROID_NDK_HOME is \"${ndk}\", which is no folder of an Android NDK "
    "(build/cmake/android.toolchain.cmake is missing). Set it to an NDK's folder, r26 or newer.")
endif()
set(ANDROID_PLATFORM android-24)
set(ANDROID_STL c++_static)
include("${ndk}/build/cmake/android.toolchain.cmake")
