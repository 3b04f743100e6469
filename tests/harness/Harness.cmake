# The native half of the Wine harness: a stand-in libXinerama.so.1 through
# which the tests choose Wine's monitor layout.
add_library(fake_xinerama SHARED ${CMAKE_CURRENT_LIST_DIR}/fake_xinerama.c)
set_target_properties(fake_xinerama PROPERTIES
  OUTPUT_NAME "Xinerama.so.1" PREFIX "lib" SUFFIX ""
  LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/harness/lib)
# The landscapes as the Linux edition paints them, which the native
# sessions' sight learns (tools/scenery_gallery_linux.cpp).
add_executable(scenery_gallery ${PROJECT_SOURCE_DIR}/tools/scenery_gallery_linux.cpp)
# The painting pulls in the play field, which calls back into the shell.
target_link_libraries(scenery_gallery PRIVATE "$<LINK_GROUP:RESCAN,puffino_core,puffino_linux_shell>")
set_target_properties(scenery_gallery PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/harness)
