# The native build: the portable core and its unit tests, the Wine test
# harness, the Windows sub-build, and every test tier registered in CTest.
enable_testing()
find_package(GTest REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_package(PkgConfig REQUIRED)
# The drawing backend of the Linux edition: cairo, with FreeType and
# fontconfig for the fonts and libpng for the pose pictures.
pkg_check_modules(DRAWING REQUIRED IMPORTED_TARGET cairo freetype2 fontconfig libpng)
# The Linux edition's shell: SDL for windows, input, keyboard grab and sound;
# Xlib for what SDL leaves out on X11 (raising without focus, the desktop's
# Xft.dpi, display changes). PulseAudio's client holds the volume ceiling:
# the core's master-volume file uses it (the unit tests link a stand-in).
pkg_check_modules(SHELL REQUIRED IMPORTED_TARGET sdl2 x11 xrandr)
pkg_check_modules(SOUND_SERVER REQUIRED IMPORTED_TARGET libpulse)

set(PUFFINO_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
set(PUFFINO_SANITIZERS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)

# The portable core with the Linux drawing backend, twice: plain and under
# the sanitizers. Any Windows include in these sources fails here.
function(puffino_core_library name)
  add_library(${name} STATIC ${PUFFINO_PORTABLE_SOURCES} ${PUFFINO_LINUX_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC PkgConfig::DRAWING)
  target_compile_options(${name} PRIVATE ${PUFFINO_WARNINGS} ${ARGN})
  target_link_options(${name} INTERFACE ${ARGN})
endfunction()
puffino_core_library(puffino_core)
puffino_core_library(puffino_core_sanitized ${PUFFINO_SANITIZERS})

# The Linux edition: its shell over the core, and the program.
add_library(puffino_linux_shell STATIC ${PUFFINO_LINUX_SHELL_SOURCES})
target_link_libraries(puffino_linux_shell PUBLIC puffino_core PkgConfig::SHELL PkgConfig::SOUND_SERVER)
target_compile_options(puffino_linux_shell PRIVATE ${PUFFINO_WARNINGS})
add_executable(puffino ${PUFFINO_LINUX_ENTRY_SOURCE})
# The host in the core calls the shell's platform functions and the shell
# calls the core: the two are searched until neither lends more.
target_link_libraries(puffino PRIVATE "$<LINK_GROUP:RESCAN,puffino_core,puffino_linux_shell>")
# The program plays with the pose pictures and fonts of this build beside it.
add_dependencies(puffino pose_pictures fonts)
target_compile_options(puffino PRIVATE ${PUFFINO_WARNINGS})

# Every portable header compiles on its own, without Windows headers.
set(HEADER_CHECK_SOURCES "")
foreach(header IN LISTS PUFFINO_PORTABLE_HEADERS)
  file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR} ${header})
  string(MAKE_C_IDENTIFIER ${relative} stem)
  set(check ${CMAKE_CURRENT_BINARY_DIR}/header_check/${stem}.cpp)
  file(CONFIGURE OUTPUT ${check} CONTENT "#include \"${relative}\"\n")
  list(APPEND HEADER_CHECK_SOURCES ${check})
endforeach()
add_library(portable_header_check OBJECT ${HEADER_CHECK_SOURCES})
target_include_directories(portable_header_check PRIVATE ${PROJECT_SOURCE_DIR})

include(${PROJECT_SOURCE_DIR}/cmake/Art.cmake)
include(${PROJECT_SOURCE_DIR}/tests/unit/UnitTests.cmake)
# What is drawn, natively: the reference scenes through cairo, inside the
# unit tests, with the pose pictures and the "Fonts" folder of this build
# beside them.
foreach(target unit_tests unit_tests_sanitized)
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/pictures/scene_pictures.cpp
    ${PROJECT_SOURCE_DIR}/tests/pictures/scene_pictures_linux.cpp ${PROJECT_SOURCE_DIR}/tests/pictures/scenes.cpp
    ${PROJECT_SOURCE_DIR}/tests/pictures/picture_compare.cpp)
  target_compile_definitions(${target} PRIVATE
    PUFFINO_CAIRO_REFERENCES="${PROJECT_SOURCE_DIR}/tests/reference_pictures/cairo"
    PUFFINO_PICTURES_OUT="${CMAKE_BINARY_DIR}/test-artifacts/pictures-cairo"
    PUFFINO_POSE_FOLDER="${PENGUIN_OUT}")
  add_dependencies(${target} pose_pictures fonts)
endforeach()
include(${PROJECT_SOURCE_DIR}/tests/harness/Harness.cmake)
include(${PROJECT_SOURCE_DIR}/benchmarks/Benchmarks.cmake)
# The Debian package of the Linux edition, with the core optimised as the
# benchmarks have it.
include(${PROJECT_SOURCE_DIR}/cmake/LinuxPackage.cmake)

# Puffino.exe and the Windows test programs, built by the cross toolchain,
# with this build's Python. The "windows" configure preset makes the same
# tree with the same settings (CMakePresets.json): keep the two alike.
include(ExternalProject)
set(PUFFINO_WINDOWS_BUILD ${CMAKE_BINARY_DIR}/windows)
ExternalProject_Add(puffino_windows
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${PUFFINO_WINDOWS_BUILD}
  CMAKE_ARGS -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/mingw-w64-x86_64.cmake
             -DCMAKE_BUILD_TYPE=Release
             -DPython3_EXECUTABLE=${Python3_EXECUTABLE}
             -DPUFFINO_DIST_DIR=${CMAKE_BINARY_DIR}/dist
             -DPUFFINO_DOWNLOADS=${CMAKE_BINARY_DIR}/downloads
  BUILD_ALWAYS ON
  INSTALL_COMMAND ""
  USES_TERMINAL_BUILD ON)
# The fonts are fetched here first; the Windows build then finds the
# tarball in the shared downloads/ and only unpacks it.
add_dependencies(puffino_windows fonts)

# The fuzzers, built by clang (libFuzzer comes with it); the same tree as
# the "fuzz" configure preset's.
set(PUFFINO_FUZZ_BUILD ${CMAKE_BINARY_DIR}/fuzz)
ExternalProject_Add(puffino_fuzzers
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${PUFFINO_FUZZ_BUILD}
  CMAKE_ARGS -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DPUFFINO_FUZZERS=ON
  BUILD_ALWAYS ON
  INSTALL_COMMAND ""
  USES_TERMINAL_BUILD ON)

include(${PROJECT_SOURCE_DIR}/tests/Tiers.cmake)
