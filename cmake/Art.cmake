# The art every build of Puffino draws with, made into the build folder:
# the penguin's pose pictures rendered from their SVG sources, the two
# rounded font faces fetched from their pinned npm package, and the
# program's icon in four sizes.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(IMAGEMAGICK_CONVERT /usr/bin/convert)  # the real ImageMagick, by full path

# The penguin's pose pictures, rendered from their SVG sources into
# assets/penguin of the build folder, where the program finds them beside
# it. 480 px tall: twice the height the penguin stands at on a 96-dpi
# screen, so it stays crisp at 200 %.
set(PENGUIN_ART ${PROJECT_SOURCE_DIR}/assets/penguin)
set(PENGUIN_OUT ${CMAKE_CURRENT_BINARY_DIR}/assets/penguin)
set(POSE_PICTURES "")
foreach(pose idle bubble yatta hurray)
  add_custom_command(OUTPUT ${PENGUIN_OUT}/${pose}.png
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PENGUIN_OUT}
    COMMAND ${RSVG_CONVERT} -h 480 -o ${PENGUIN_OUT}/${pose}.png ${PENGUIN_ART}/${pose}.svg
    DEPENDS ${PENGUIN_ART}/${pose}.svg ${PENGUIN_ART}/parts.svg VERBATIM)
  list(APPEND POSE_PICTURES ${PENGUIN_OUT}/${pose}.png)
endforeach()
add_custom_target(pose_pictures ALL DEPENDS ${POSE_PICTURES})

# The rounded faces in Fonts/ of the build folder, fetched from their pinned
# npm package. The tarball is kept in one downloads/ folder, which the
# native build hands to the Windows build, so that a build fetches it once.
if(NOT PUFFINO_DOWNLOADS)
  set(PUFFINO_DOWNLOADS ${CMAKE_CURRENT_BINARY_DIR}/downloads)
endif()
set(PUFFINO_FONTS_DIR ${CMAKE_CURRENT_BINARY_DIR}/Fonts)
set(PUFFINO_FONT_FILES ${PUFFINO_FONTS_DIR}/MPLUSRounded1c-Regular.ttf
                       ${PUFFINO_FONTS_DIR}/MPLUSRounded1c-Black.ttf
                       ${PUFFINO_FONTS_DIR}/OFL.txt)
add_custom_command(OUTPUT ${PUFFINO_FONT_FILES}
  COMMAND ${CMAKE_COMMAND} -DCACHE_DIR=${PUFFINO_DOWNLOADS}
          -DFONTS_DIR=${PUFFINO_FONTS_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/FetchFonts.cmake
  DEPENDS ${PROJECT_SOURCE_DIR}/cmake/FetchFonts.cmake VERBATIM)
add_custom_target(fonts ALL DEPENDS ${PUFFINO_FONT_FILES})

# The program's icon, 256, 128, 64 and 32 px: the standing penguin, drawn at
# each size and centred on a square of transparency. Puffino.exe packs them
# into its icon group, the Linux edition installs them into the desktop's
# icon theme.
set(ICON_SOURCE ${PENGUIN_ART}/idle.svg)
set(ICON_SIZES 256 128 64 32)
set(ICON_PNGS "")
foreach(size IN LISTS ICON_SIZES)
  set(png ${CMAKE_CURRENT_BINARY_DIR}/resources/icon-${size}.png)
  add_custom_command(OUTPUT ${png}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/resources
    COMMAND ${RSVG_CONVERT} -h ${size} -o ${png} ${ICON_SOURCE}
    COMMAND ${IMAGEMAGICK_CONVERT} ${png} -background none -gravity center
            -extent ${size}x${size} ${png}
    DEPENDS ${ICON_SOURCE} ${PENGUIN_ART}/parts.svg VERBATIM)
  list(APPEND ICON_PNGS ${png})
endforeach()
