# The release a parent downloads, made by every build (target "release"):
#   <dist>/Puffino/                          the folder: Puffino.exe, assets\penguin,
#                                            Fonts, README.txt, LICENSE.txt
#   <dist>/Puffino-<version>-win64.zip       that folder, zipped reproducibly
#   <dist>/Puffino-<version>-win64-setup.exe the per-user installer (NSIS)
# <dist> is the top build's dist/ (PUFFINO_DIST_DIR), else dist/ here.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(MAKENSIS makensis REQUIRED)

if(NOT PUFFINO_DIST_DIR)
  set(PUFFINO_DIST_DIR ${CMAKE_CURRENT_BINARY_DIR}/dist)
endif()
set(RELEASE_FOLDER ${PUFFINO_DIST_DIR}/Puffino)
set(RELEASE_NAME Puffino-${PROJECT_VERSION}-win64)
set(RELEASE_ZIP ${PUFFINO_DIST_DIR}/${RELEASE_NAME}.zip)
set(RELEASE_INSTALLER ${PUFFINO_DIST_DIR}/${RELEASE_NAME}-setup.exe)
set(RELEASE_SOURCES ${PROJECT_SOURCE_DIR}/release)

configure_file(${RELEASE_SOURCES}/README.txt ${CMAKE_CURRENT_BINARY_DIR}/release/README.txt @ONLY)

# The shipped exe without its symbol tables: less than half the size, the
# same program. strip would stamp the current time into the PE header;
# SOURCE_DATE_EPOCH keeps the linker's zero.
set(SHIPPED_EXE ${CMAKE_CURRENT_BINARY_DIR}/release/Puffino.exe)
add_custom_command(OUTPUT ${SHIPPED_EXE}
  COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0
          ${CMAKE_STRIP} --strip-all -o ${SHIPPED_EXE} $<TARGET_FILE:Puffino>
  DEPENDS Puffino VERBATIM)

# SOURCE=NAME pairs: where each shipped file comes from and where it goes.
set(RELEASE_FILES
  ${SHIPPED_EXE}=Puffino.exe
  ${CMAKE_CURRENT_BINARY_DIR}/release/README.txt=README.txt
  ${PROJECT_SOURCE_DIR}/LICENSE=LICENSE.txt)
foreach(picture IN LISTS POSE_PICTURES)
  get_filename_component(name ${picture} NAME)
  list(APPEND RELEASE_FILES ${picture}=assets/penguin/${name})
endforeach()
foreach(font IN LISTS PUFFINO_FONT_FILES)
  get_filename_component(name ${font} NAME)
  list(APPEND RELEASE_FILES ${font}=Fonts/${name})
endforeach()

add_custom_command(OUTPUT ${RELEASE_ZIP}
  COMMAND ${Python3_EXECUTABLE} ${RELEASE_SOURCES}/make_release.py
          --folder ${RELEASE_FOLDER} --zip ${RELEASE_ZIP} ${RELEASE_FILES}
  DEPENDS ${SHIPPED_EXE} ${POSE_PICTURES} ${PUFFINO_FONT_FILES} ${PROJECT_SOURCE_DIR}/LICENSE
          ${CMAKE_CURRENT_BINARY_DIR}/release/README.txt ${RELEASE_SOURCES}/make_release.py
  COMMENT "Release folder and ${RELEASE_NAME}.zip" VERBATIM)

# The installer's welcome and finish pages show the standing penguin on a
# pale sky (164 x 314, the size those pages give their picture).
set(INSTALLER_PICTURE ${CMAKE_CURRENT_BINARY_DIR}/release/installer-side.bmp)
add_custom_command(OUTPUT ${INSTALLER_PICTURE}
  COMMAND ${RSVG_CONVERT} -w 132 -o ${CMAKE_CURRENT_BINARY_DIR}/release/installer-penguin.png
          ${PENGUIN_ART}/idle.svg
  COMMAND ${IMAGEMAGICK_CONVERT} -size 164x314 "gradient:#A8D8F8-#E8F4FC"
          ${CMAKE_CURRENT_BINARY_DIR}/release/installer-penguin.png
          -gravity center -composite -alpha off BMP3:${INSTALLER_PICTURE}
  DEPENDS ${PENGUIN_ART}/idle.svg ${PENGUIN_ART}/parts.svg VERBATIM)

add_custom_command(OUTPUT ${RELEASE_INSTALLER}
  COMMAND ${MAKENSIS} -V2 -INPUTCHARSET UTF8
          -DVERSION=${PROJECT_VERSION}
          -DVERSION_QUAD=${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}.0
          -DDIST=${RELEASE_FOLDER} -DICON=${ICON_FILE} -DPICTURE=${INSTALLER_PICTURE}
          -DOUTFILE=${RELEASE_INSTALLER}
          -DPUBLISHER=${PUFFINO_PUBLISHER} -DCOPYRIGHT=${PUFFINO_COPYRIGHT}
          -DDESCRIPTION=${PUFFINO_DESCRIPTION}
          ${RELEASE_SOURCES}/installer.nsi
  DEPENDS ${RELEASE_ZIP} ${ICON_FILE} ${INSTALLER_PICTURE} ${RELEASE_SOURCES}/installer.nsi
  COMMENT "Installer ${RELEASE_NAME}-setup.exe" VERBATIM)

add_custom_target(release ALL DEPENDS ${RELEASE_ZIP} ${RELEASE_INSTALLER})
