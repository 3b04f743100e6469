# The fuzz build: the portable core compiled by clang with libFuzzer's
# coverage and AddressSanitizer/UndefinedBehaviorSanitizer, and one fuzzer
# per tests/fuzz/*_fuzzer.cpp, linked with the recording stand-ins of the
# operating system. The native build makes this tree in build/fuzz; CTest
# runs each fuzzer briefly (label fuzz), `./puffino fuzz [seconds]` longer.
set(FUZZ_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g -O1)

# The best score's file reading is the only system service the portable
# core calls directly: its POSIX side comes along.
add_library(puffino_core_fuzz STATIC ${PUFFINO_PORTABLE_SOURCES} ${PROJECT_SOURCE_DIR}/assets/whole_file_linux.cpp)
target_include_directories(puffino_core_fuzz PUBLIC ${PROJECT_SOURCE_DIR})
target_compile_options(puffino_core_fuzz PUBLIC ${FUZZ_FLAGS} PRIVATE -fsanitize=fuzzer-no-link)
target_link_options(puffino_core_fuzz PUBLIC -fsanitize=address,undefined)

file(GLOB FUZZER_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*_fuzzer.cpp)
foreach(source IN LISTS FUZZER_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  # The stand-ins are linked whole, so that they answer before the core.
  add_executable(${name} ${source} ${PROJECT_SOURCE_DIR}/tests/unit/fake_platform.cpp
                         ${PROJECT_SOURCE_DIR}/tests/unit/settings_fakes.cpp)
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE puffino_core_fuzz)
  # Where the inputs found worth keeping accumulate between runs.
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/corpus/${name} ${CMAKE_BINARY_DIR}/artifacts)
endforeach()
