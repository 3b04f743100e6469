# Fetches the two rounded faces (M PLUS Rounded 1c, SIL Open Font Licence)
# from their npm package and installs them under the program's names with
# the licence beside them. Run as a script:
#   cmake -DCACHE_DIR=<download cache> -DFONTS_DIR=<Fonts folder> -P FetchFonts.cmake
# The package is pinned by version and SHA-256; a tarball already in the
# cache with the right checksum is used again without asking npm.
cmake_minimum_required(VERSION 3.25)

set(PACKAGE "@expo-google-fonts/m-plus-rounded-1c")
set(VERSION "0.4.4")
set(TARBALL "${CACHE_DIR}/expo-google-fonts-m-plus-rounded-1c-${VERSION}.tgz")
set(TARBALL_SHA256 "273d6b5f5a4de023effb8192adfa898806545e6495f6ca062bc19f067eec76bb")

function(tarball_is_good result)
  set(${result} FALSE PARENT_SCOPE)
  if(EXISTS "${TARBALL}")
    file(SHA256 "${TARBALL}" actual)
    if(actual STREQUAL TARBALL_SHA256)
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endif()
endfunction()

tarball_is_good(cached)
if(NOT cached)
  file(REMOVE "${TARBALL}")
  file(MAKE_DIRECTORY "${CACHE_DIR}")
  find_program(NPM npm REQUIRED)
  message(STATUS "Fetching ${PACKAGE}@${VERSION} with npm pack")
  execute_process(COMMAND "${NPM}" pack "${PACKAGE}@${VERSION}" --pack-destination "${CACHE_DIR}"
                          --silent
                  WORKING_DIRECTORY "${CACHE_DIR}"
                  RESULT_VARIABLE npm_result OUTPUT_QUIET)
  if(NOT npm_result EQUAL 0)
    message(FATAL_ERROR "npm pack ${PACKAGE}@${VERSION} failed (${npm_result})")
  endif()
  tarball_is_good(fetched)
  if(NOT fetched)
    file(REMOVE "${TARBALL}")
    message(FATAL_ERROR "${PACKAGE}@${VERSION}: the tarball's SHA-256 is not the pinned one")
  endif()
endif()

set(UNPACKED "${CACHE_DIR}/m-plus-rounded-1c-${VERSION}")
file(REMOVE_RECURSE "${UNPACKED}")
file(ARCHIVE_EXTRACT INPUT "${TARBALL}" DESTINATION "${UNPACKED}"
     PATTERNS package/400Regular/MPLUSRounded1c_400Regular.ttf
              package/900Black/MPLUSRounded1c_900Black.ttf
              package/LICENSE_FONT)

file(MAKE_DIRECTORY "${FONTS_DIR}")
file(COPY_FILE "${UNPACKED}/package/400Regular/MPLUSRounded1c_400Regular.ttf"
     "${FONTS_DIR}/MPLUSRounded1c-Regular.ttf")
file(COPY_FILE "${UNPACKED}/package/900Black/MPLUSRounded1c_900Black.ttf"
     "${FONTS_DIR}/MPLUSRounded1c-Black.ttf")
file(COPY_FILE "${UNPACKED}/package/LICENSE_FONT" "${FONTS_DIR}/OFL.txt")
file(REMOVE_RECURSE "${UNPACKED}")
