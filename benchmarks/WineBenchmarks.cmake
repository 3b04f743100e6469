# What a frame costs under Wine: the program's own drawing on a real
# window's buffers, built with the Windows programs and run only by
# `./puffino bench-wine` (tools/bench_wine.py), never by the tests.
add_executable(frame_cost_benchmark ${CMAKE_CURRENT_LIST_DIR}/frame_cost_benchmark_win.cpp
                                    ${PUFFINO_WIN_SOURCES} ${PUFFINO_PORTABLE_SOURCES})
target_link_options(frame_cost_benchmark PRIVATE -municode)
target_link_libraries(frame_cost_benchmark PRIVATE ${PUFFINO_SYSTEM_LIBRARIES})
set_target_properties(frame_cost_benchmark PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESTS_OUT})
add_dependencies(frame_cost_benchmark pose_pictures test_fonts)
