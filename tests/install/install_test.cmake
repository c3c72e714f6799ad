# Installs into a fresh prefix, builds a host against it alone, runs the host and the installed tool.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(ENV{TMPDIR} ${WORK}) # the compiler's
set(prefix ${WORK}/prefix)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} OUTPUT_QUIET
  COMMAND_ERROR_IS_FATAL ANY)
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/host
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_C_COMPILER=${C} -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DVERSION=${VERSION}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/host COMMAND_ERROR_IS_FATAL ANY)
foreach(program ${WORK}/host/host ${WORK}/host/host_in_c)
  execute_process(COMMAND ${EMULATOR} ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND ${EMULATOR} ${prefix}/bin/orvex-align --version OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
if(NOT version STREQUAL "orvex-align ${VERSION}\nlibOrvex_Alignment v1313.47.10.02\n")
  message(FATAL_ERROR "the installed tool is of another release or does not find the installed library: ${version}")
endif()
# What the tests of the built tool say holds for the installed one.
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${TOOL} ${prefix}/bin/orvex-align COMMAND_ERROR_IS_FATAL ANY)
