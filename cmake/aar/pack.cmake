# Packs the libraries that are built for Android, the public headers and their descriptions into an .aar.
# BUILD: where the build folders android-* are and the archive goes to.
cmake_minimum_required(VERSION 3.25)
set(project ${CMAKE_CURRENT_LIST_DIR}/../..)
set(stage ${BUILD}/aar)

function(cache_value name folder result)
  file(STRINGS ${folder}/CMakeCache.txt line REGEX "^${name}:")
  if(NOT line)
    message(FATAL_ERROR "${folder} was not configured for Android (no ${name} in its CMakeCache.txt): configure it "
      "anew with one of the android presets.")
  endif()
  string(REGEX REPLACE "^[^=]*=" "" value "${line}")
  set(${result} "${value}" PARENT_SCOPE)
endfunction()

function(add_description name place)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${name}.in ${stage}/${place}/${name} @ONLY NEWLINE_STYLE UNIX)
endfunction()

# The script of tests/, with these settings, finds no fault with the library.
function(check library script)
  execute_process(COMMAND ${CMAKE_COMMAND} -DLIBRARY=${library} ${ARGN} -P ${project}/tests/${script}
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE told)
  if(NOT result EQUAL 0)
    string(REGEX REPLACE "\n[ \n]*\n" "\n" told "${told}")
    message(FATAL_ERROR "${library} is not fit for phones, nothing was packed: build it anew with one of the android "
      "presets; if it stays so, its link (cmake/PhoneLink.cmake) or what is linked into it is at fault.\n${told}")
  endif()
endfunction()

# The files of the folder in a fixed order and with one time of change, whenever they are packed.
function(zip folder archive)
  file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE ${folder} ${folder}/*)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env TZ=UTC ${CMAKE_COMMAND} -E tar cf ${archive} --format=zip
    "--mtime=2000-01-01 00:00:00 UTC" -- ${files} WORKING_DIRECTORY ${folder} RESULT_VARIABLE result
    ERROR_VARIABLE told)
  if(NOT result EQUAL 0)
    file(REMOVE ${archive})
    message(FATAL_ERROR "${archive} could not be written: ${told}Check the folder's permissions and free space.")
  endif()
endfunction()

file(REMOVE_RECURSE ${stage})
set(module prefab/modules/Orvex_Alignment)
file(GLOB folders ${BUILD}/android-*)
foreach(folder IN LISTS folders)
  set(library ${folder}/lib/libOrvex_Alignment.so)
  if(NOT EXISTS ${library})
    message(FATAL_ERROR "${library} is missing: finish the build of ${folder} or remove the folder.")
  endif()
  cache_value(CMAKE_PROJECT_VERSION ${folder} version)
  cache_value(ANDROID_ABI ${folder} abi)
  cache_value(ANDROID_PLATFORM ${folder} platform)
  cache_value(ORVEX_NDK_VERSION ${folder} ndk)
  string(REGEX REPLACE "^android-" "" api ${platform})
  list(APPEND versions ${version})
  list(APPEND abis ${abi})
  cache_value(CMAKE_READELF ${folder} readelf)
  cache_value(CMAKE_NM ${folder} nm)
  cache_value(ORVEX_HAS_mbranch_protection_standard ${folder} protected)
  check(${library} phone/linked_library.cmake -DREADELF=${readelf} -DBRANCH_PROTECTION=${protected})
  check(${library} exported_symbols.cmake -DNM=${nm} -DLIST=${project}/src/exports.list)
  check(${library} phone/platform.cmake -DNM=${nm} -DSOURCE=${project} -DLIST=${project}/tests/phone/platform.list)

  file(COPY ${library} DESTINATION ${stage}/jni/${abi})
  file(COPY ${library} DESTINATION ${stage}/${module}/libs/android.${abi})
  add_description(abi.json ${module}/libs/android.${abi})
endforeach()

list(REMOVE_DUPLICATES versions)
list(LENGTH versions count)
if(count EQUAL 0)
  message(FATAL_ERROR "No library is built for Android: ${BUILD} holds no folder android-*. Run "
    "`make build-android-arm64`, for emulators `make build-android-x86_64`.")
elseif(count GREATER 1)
  list(JOIN versions " and " versions)
  message(FATAL_ERROR "The built libraries are of versions ${versions}: build all of them anew.")
endif()

file(COPY ${project}/include/ DESTINATION ${stage}/${module}/include)
add_description(module.json ${module})
add_description(prefab.json prefab)
add_description(AndroidManifest.xml .)
# The format demands the manifest alone; without these two some of its readers stop.
file(WRITE ${stage}/R.txt "")
file(WRITE ${BUILD}/aar-classes/META-INF/MANIFEST.MF "Manifest-Version: 1.0\n")
zip(${BUILD}/aar-classes ${stage}/classes.jar)

set(archive ${BUILD}/Orvex_Alignment-${version}.aar)
zip(${stage} ${archive}.part)
file(RENAME ${archive}.part ${archive})
file(REMOVE_RECURSE ${stage} ${BUILD}/aar-classes)
list(JOIN abis ", " abis)
message(STATUS "Packed ${archive} (${abis})")
