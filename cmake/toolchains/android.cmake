# The NDK's own toolchain. The presets say what is asked of it.
include(${CMAKE_CURRENT_LIST_DIR}/android-ndk.cmake)
file(STRINGS "${ndk}/source.properties" revision REGEX "^Pkg\\.Revision")
string(REGEX MATCH "[0-9]+" revision "${revision}")
set(ORVEX_NDK_VERSION "${revision}" CACHE INTERNAL "Major version of the NDK")
include("${ndk}/build/cmake/android.toolchain.cmake")
