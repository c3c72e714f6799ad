# Without the NDK or without Mbed TLS's source the configuration stops and tells what to set.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK})
file(WRITE ${WORK}/ndk/build/cmake/android.toolchain.cmake "set(ANDROID TRUE)\n")
file(WRITE ${WORK}/ndk/source.properties "Pkg.Revision = 26.3.11579264\n")
foreach(case
    "|${WORK}|ANDROID_NDK_HOME is \"\", which is no folder of an Android NDK"
    "${WORK}|${WORK}|ANDROID_NDK_HOME is \"${WORK}\", which is no folder of an Android NDK"
    "${WORK}/ndk||ORVEX_MBEDTLS_SOURCE is \"\", which is no source folder of Mbed TLS"
    "${WORK}/ndk|${WORK}|ORVEX_MBEDTLS_SOURCE is \"${WORK}\", which is no source folder of Mbed TLS")
  string(REPLACE "|" ";" case "${case}")
  list(POP_FRONT case ndk mbedtls expected)
  set(ENV{ANDROID_NDK_HOME} "${ndk}")
  set(ENV{ORVEX_MBEDTLS_SOURCE} "${mbedtls}")
  file(REMOVE_RECURSE ${WORK}/build)
  execute_process(COMMAND ${CMAKE_COMMAND} --preset android-arm64 -B ${WORK}/build
    -DCMAKE_C_COMPILER=${C} -DCMAKE_CXX_COMPILER=${CXX}
    WORKING_DIRECTORY ${SOURCE} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE told)
  string(REGEX REPLACE "[ \n]+" " " told "${told}") # messages are wrapped
  string(FIND "${told}" "${expected}" place)
  if(result EQUAL 0 OR place EQUAL -1)
    message(SEND_ERROR "${expected}: not told, but\n${told}")
  endif()
endforeach()
