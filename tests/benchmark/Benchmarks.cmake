# Speed and memory measurements of the portable core with Google Benchmark:
# one program per tests/benchmark/*_benchmark.cpp, optimised whatever the
# build type, built with everything else but never run by the test command.
#   cmake --build build --target benchmarks
#   build/benchmark/<name>_benchmark
find_package(benchmark REQUIRED)
file(GLOB BENCHMARK_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*_benchmark.cpp)
add_custom_target(benchmarks)
foreach(source IN LISTS BENCHMARK_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source} ${PUFFINO_PORTABLE_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(${name} PRIVATE -O2)
  target_link_libraries(${name} PRIVATE benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/benchmark)
  add_dependencies(benchmarks ${name})
endforeach()
