# Speed and memory measurements of the portable core with Google Benchmark:
# one program per benchmarks/*_benchmark.cpp, optimised as the shipped
# Puffino.exe is (CMake's Release flags, -O3 -DNDEBUG) whatever the build
# type, built with everything else but never run by the test command.
#   ./puffino bench   (builds them, then runs each)
#   build/benchmark/<name>_benchmark
find_package(benchmark REQUIRED)

# The core once more, optimised; as a static library it lends each program
# only the pieces that program measures.
puffino_core_library(puffino_core_optimised -O3 -DNDEBUG)
file(GLOB BENCHMARK_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*_benchmark.cpp)
add_custom_target(benchmarks)
foreach(source IN LISTS BENCHMARK_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  # The recording stand-ins answer what the core asks of the system.
  add_executable(${name} ${source} ${PROJECT_SOURCE_DIR}/tests/unit/fake_platform.cpp
                                   ${PROJECT_SOURCE_DIR}/tests/unit/settings_fakes.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(${name} PRIVATE -O3 -DNDEBUG)
  target_link_libraries(${name} PRIVATE puffino_core_optimised benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/benchmark)
  add_dependencies(benchmarks ${name})
endforeach()
# The frame composition draws with the pose pictures and the fonts of this
# build, the fonts in a "Fonts" folder beside the programs.
target_compile_definitions(frame_compose_benchmark PRIVATE PUFFINO_POSE_FOLDER="${PENGUIN_OUT}")
add_custom_command(TARGET frame_compose_benchmark POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PUFFINO_FONTS_DIR} ${CMAKE_BINARY_DIR}/benchmark/Fonts VERBATIM)
add_dependencies(frame_compose_benchmark pose_pictures fonts)
