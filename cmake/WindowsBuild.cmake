# Puffino.exe and the Windows-side test programs, cross-compiled with
# mingw-w64 and linked statically: the program needs no DLL besides the
# system's.
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
add_compile_options(-Wall -Wextra)
add_link_options(-static -static-libgcc -static-libstdc++)
include_directories(${PROJECT_SOURCE_DIR})

set(PUFFINO_SYSTEM_LIBRARIES gdiplus winmm ole32 uuid shell32 user32 gdi32)

include(${PROJECT_SOURCE_DIR}/cmake/Art.cmake)

# The icon group 101: the icon's four sizes in one .ico.
set(ICON_FILE ${CMAKE_CURRENT_BINARY_DIR}/resources/Puffino.ico)
add_custom_command(OUTPUT ${ICON_FILE}
  COMMAND ${IMAGEMAGICK_CONVERT} ${ICON_PNGS} ${ICON_FILE}
  DEPENDS ${ICON_PNGS} VERBATIM)
configure_file(${PROJECT_SOURCE_DIR}/resources/Puffino.manifest
               ${CMAKE_CURRENT_BINARY_DIR}/resources/Puffino.manifest @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/resources/Puffino.rc
               ${CMAKE_CURRENT_BINARY_DIR}/resources/Puffino.rc @ONLY)
set(PUFFINO_RC ${CMAKE_CURRENT_BINARY_DIR}/resources/Puffino.rc)
set_source_files_properties(${PUFFINO_RC} PROPERTIES OBJECT_DEPENDS
  "${ICON_FILE};${CMAKE_CURRENT_BINARY_DIR}/resources/Puffino.manifest")

add_executable(Puffino WIN32 ${PUFFINO_ENTRY_SOURCE} ${PUFFINO_WIN_SOURCES}
                             ${PUFFINO_PORTABLE_SOURCES} ${PUFFINO_RC})
# No link time in the PE header: the same sources give the same bytes, so
# the release zip of an unchanged tree does not change either.
target_link_options(Puffino PRIVATE -municode -Wl,--no-insert-timestamp)
target_link_libraries(Puffino PRIVATE ${PUFFINO_SYSTEM_LIBRARIES})
add_dependencies(Puffino pose_pictures)

# GoogleTest from Debian's sources, built with this toolchain for the tests
# that run under Wine.
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_CURRENT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

include(${PROJECT_SOURCE_DIR}/tests/wine/WineTests.cmake)
include(${PROJECT_SOURCE_DIR}/benchmarks/WineBenchmarks.cmake)
include(${PROJECT_SOURCE_DIR}/cmake/Release.cmake)
