# Where the NDK is. The toolchain needs it, and the project asks for it before its languages: CMake goes on after an
# error in a toolchain and buries it under its own, of compilers that it then misses.
set(ndk "$ENV{ANDROID_NDK_HOME}")
if(NOT EXISTS "${ndk}/build/cmake/android.toolchain.cmake" OR NOT EXISTS "${ndk}/source.properties")
  message(FATAL_ERROR "ANDROID_NDK_HOME is \"${ndk}\", which is no folder of an Android NDK "
    "(source.properties or build/cmake/android.toolchain.cmake is missing). Set it to an NDK's folder, r26 or newer.")
endif()
