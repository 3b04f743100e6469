# The native half of the Wine harness: a stand-in libXinerama.so.1 through
# which the tests choose Wine's monitor layout.
add_library(fake_xinerama SHARED ${CMAKE_CURRENT_LIST_DIR}/fake_xinerama.c)
set_target_properties(fake_xinerama PROPERTIES
  OUTPUT_NAME "Xinerama.so.1" PREFIX "lib" SUFFIX ""
  LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/harness/lib)
