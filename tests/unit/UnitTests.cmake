# Native GoogleTest on the portable core, plain and sanitized.
file(GLOB UNIT_TEST_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.cpp)

function(puffino_unit_tests name core)
  add_executable(${name} ${UNIT_TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${core} GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(${name} PRIVATE ${ARGN})
  target_link_options(${name} PRIVATE ${ARGN})
endfunction()
puffino_unit_tests(unit_tests puffino_core)
puffino_unit_tests(unit_tests_sanitized puffino_core_sanitized ${PUFFINO_SANITIZERS})

# The host's orders against a recording platform: a program of its own, for
# the host's end of play is the one the other unit tests stand in for.
add_executable(host_tests ${CMAKE_CURRENT_LIST_DIR}/host/host_order_test.cpp
                          ${CMAKE_CURRENT_LIST_DIR}/settings_fakes.cpp)
target_link_libraries(host_tests PRIVATE puffino_core GTest::gtest_main)
target_include_directories(host_tests PRIVATE ${PROJECT_SOURCE_DIR})
