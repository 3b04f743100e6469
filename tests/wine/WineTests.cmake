# Windows-side test programs, run under Wine by the harness.
set(TESTS_OUT ${CMAKE_CURRENT_BINARY_DIR}/tests)

# The harness's probe: lists Puffino's windows, posts messages to them and
# watches the keys that get past Puffino's guard.
add_executable(probe ${PROJECT_SOURCE_DIR}/tests/harness/probe_win.cpp)
target_link_options(probe PRIVATE -municode)
target_link_libraries(probe PRIVATE user32 psapi ntdll)
set_target_properties(probe PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESTS_OUT})

# GoogleTest programs. The shell's tests link the real shell with recording
# stand-ins for the play field, the scene and the volume clamp.
function(puffino_wine_tests name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE gtest_main ${PUFFINO_SYSTEM_LIBRARIES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESTS_OUT})
endfunction()

file(GLOB SHELL_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/app/*.cpp)
list(FILTER SHELL_SOURCES EXCLUDE REGEX "_linux\\.cpp$")
list(REMOVE_ITEM SHELL_SOURCES ${PUFFINO_ENTRY_SOURCE})
puffino_wine_tests(shell_tests
  ${CMAKE_CURRENT_LIST_DIR}/shell_tests.cpp
  ${CMAKE_CURRENT_LIST_DIR}/shell_fakes.cpp
  ${SHELL_SOURCES}
  ${PROJECT_SOURCE_DIR}/play/display_records.cpp
  ${PROJECT_SOURCE_DIR}/play/random.cpp
  ${PROJECT_SOURCE_DIR}/render/frame_buffers_win.cpp)

puffino_wine_tests(resources_tests
  ${CMAKE_CURRENT_LIST_DIR}/resources_tests.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/file_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths_win.cpp)
add_dependencies(resources_tests Puffino)
target_link_libraries(resources_tests PRIVATE version)
# The version the exe must carry: the project's, the one source of it.
target_compile_definitions(resources_tests PRIVATE
  PUFFINO_VERSION="${PROJECT_VERSION}" PUFFINO_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  PUFFINO_VERSION_MINOR=${PROJECT_VERSION_MINOR} PUFFINO_VERSION_PATCH=${PROJECT_VERSION_PATCH})

# The settings on real files in the session's prefix.
file(GLOB SETTINGS_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/settings/*.cpp)
list(FILTER SETTINGS_SOURCES EXCLUDE REGEX "_linux\\.cpp$")
puffino_wine_tests(settings_tests
  ${CMAKE_CURRENT_LIST_DIR}/settings_tests.cpp
  ${SETTINGS_SOURCES}
  ${PROJECT_SOURCE_DIR}/assets/file_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/whole_file_win.cpp)

# The pose pictures' loading with its fallbacks and their clean-up.
set(POSE_LOADER_SOURCES
  ${PROJECT_SOURCE_DIR}/assets/penguin_images.cpp
  ${PROJECT_SOURCE_DIR}/assets/loaded_pose_size.cpp
  ${PROJECT_SOURCE_DIR}/assets/penguin_images_win.cpp
  ${PROJECT_SOURCE_DIR}/assets/pose_picture_prepare_win.cpp
  ${PROJECT_SOURCE_DIR}/assets/pose_picture_filters.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/file_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths_win.cpp)
puffino_wine_tests(picture_tests
  ${CMAKE_CURRENT_LIST_DIR}/penguin_images_tests.cpp
  ${POSE_LOADER_SOURCES})
add_dependencies(picture_tests pose_pictures)

# Not a test: paints every landscape into PNG files for a person to look at
# (tools/scenery_gallery.py).
add_executable(scenery_gallery ${PROJECT_SOURCE_DIR}/tools/scenery_gallery_win.cpp
  ${PUFFINO_WIN_SOURCES} ${PUFFINO_PORTABLE_SOURCES})
target_link_options(scenery_gallery PRIVATE -municode)
target_link_libraries(scenery_gallery PRIVATE ${PUFFINO_SYSTEM_LIBRARIES})
set_target_properties(scenery_gallery PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESTS_OUT})
# The fonts and the outlined text, with the shipped faces in a "Fonts"
# folder beside the test program, where the program's search finds them.
add_custom_command(OUTPUT ${TESTS_OUT}/Fonts/MPLUSRounded1c-Regular.ttf
                          ${TESTS_OUT}/Fonts/MPLUSRounded1c-Black.ttf
  COMMAND ${CMAKE_COMMAND} -E make_directory ${TESTS_OUT}/Fonts
  COMMAND ${CMAKE_COMMAND} -E copy ${PUFFINO_FONTS_DIR}/MPLUSRounded1c-Regular.ttf
          ${PUFFINO_FONTS_DIR}/MPLUSRounded1c-Black.ttf ${TESTS_OUT}/Fonts
  DEPENDS ${PUFFINO_FONT_FILES} VERBATIM)
add_custom_target(test_fonts ALL DEPENDS ${TESTS_OUT}/Fonts/MPLUSRounded1c-Regular.ttf)
# The fonts as the labels get them.
puffino_wine_tests(text_tests
  ${CMAKE_CURRENT_LIST_DIR}/font_tests.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/asset_paths_win.cpp
  ${PROJECT_SOURCE_DIR}/assets/file_paths.cpp
  ${PROJECT_SOURCE_DIR}/assets/font_folders.cpp
  ${PROJECT_SOURCE_DIR}/assets/fonts.cpp
  ${PROJECT_SOURCE_DIR}/assets/fonts_win.cpp)
add_dependencies(text_tests test_fonts)

# The reference scenes composed by the whole program's drawing, with the
# shipped fonts and pose pictures. A copy away from the "Fonts" folder draws
# the labels without any usable family.
add_executable(scene_pictures ${PROJECT_SOURCE_DIR}/tests/pictures/scene_pictures_win.cpp
  ${PROJECT_SOURCE_DIR}/tests/pictures/scene_pictures.cpp ${PROJECT_SOURCE_DIR}/tests/pictures/scenes.cpp
  ${PROJECT_SOURCE_DIR}/tests/pictures/picture_compare.cpp
  ${PUFFINO_WIN_SOURCES} ${PUFFINO_PORTABLE_SOURCES})
target_link_options(scene_pictures PRIVATE -municode)
target_link_libraries(scene_pictures PRIVATE gtest ${PUFFINO_SYSTEM_LIBRARIES})
set_target_properties(scene_pictures PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESTS_OUT})
add_dependencies(scene_pictures pose_pictures test_fonts)
add_custom_command(TARGET scene_pictures POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E make_directory ${TESTS_OUT}/without_fonts
  COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:scene_pictures> ${TESTS_OUT}/without_fonts
  VERBATIM)
