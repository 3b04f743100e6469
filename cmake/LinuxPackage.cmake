# The Linux edition's Debian package, made by CPack with every native build
# (target "deb"): build/dist/puffino_<version>_amd64.deb, holding
#   /usr/games/puffino                          the program, optimised, stripped
#   /usr/share/puffino/assets/penguin/*.png     the pose pictures
#   /usr/share/puffino/Fonts/                   the rounded faces and OFL.txt
#   /usr/share/applications/puffino.desktop     the desktop's menu entry
#   /usr/share/icons/hicolor/<n>x<n>/apps/      the icon (the standing penguin)
#   /usr/share/man/man6/puffino.6.gz            a short manual page
#   /usr/share/doc/puffino/                     copyright, changelog.gz
# The program finds its files in ../share/puffino from its own folder, so the
# package unpacked anywhere (dpkg -x) plays as well as the installed one.
set(PUFFINO_MAINTAINER "Morvenda <puffino@morvenda.example>")
set(PACKAGE_SOURCES ${PROJECT_SOURCE_DIR}/release/linux)
set(PACKAGE_STAGE ${CMAKE_BINARY_DIR}/package)
set(DEB_NAME puffino_${PROJECT_VERSION}_amd64.deb)
set(DEB_FILE ${CMAKE_BINARY_DIR}/dist/${DEB_NAME})

# The shipped program: the core as the benchmarks measure it (CMake's
# Release flags, -O3 -DNDEBUG, whatever the build type), under a shell
# compiled the same way. Built beside the Debug program, it costs this
# build folder only the shell's few files once more.
add_library(puffino_linux_shell_optimised STATIC ${PUFFINO_LINUX_SHELL_SOURCES})
target_link_libraries(puffino_linux_shell_optimised PUBLIC puffino_core_optimised PkgConfig::SHELL
                      PkgConfig::SOUND_SERVER)
target_compile_options(puffino_linux_shell_optimised PRIVATE ${PUFFINO_WARNINGS} -O3 -DNDEBUG)
add_executable(puffino_shipped ${PUFFINO_LINUX_ENTRY_SOURCE})
target_link_libraries(puffino_shipped PRIVATE
                      "$<LINK_GROUP:RESCAN,puffino_core_optimised,puffino_linux_shell_optimised>")
target_compile_options(puffino_shipped PRIVATE ${PUFFINO_WARNINGS} -O3 -DNDEBUG)
# Debian's hardening: read-only relocations, bound at start.
target_link_options(puffino_shipped PRIVATE -Wl,-z,relro -Wl,-z,now)
set_target_properties(puffino_shipped PROPERTIES OUTPUT_NAME puffino
                      RUNTIME_OUTPUT_DIRECTORY ${PACKAGE_STAGE}/bin)
# Stripped as it is built, of the symbols and of the compilers' notes too.
add_custom_command(TARGET puffino_shipped POST_BUILD
  COMMAND ${CMAKE_STRIP} --strip-all --remove-section=.comment $<TARGET_FILE:puffino_shipped> VERBATIM)

# The documents the package carries: Debian wants the manual page and the
# changelog compressed with gzip -9n (no name, no time: the same bytes again).
configure_file(${PACKAGE_SOURCES}/puffino.6 ${PACKAGE_STAGE}/doc/puffino.6 @ONLY)
configure_file(${PACKAGE_SOURCES}/changelog.in ${PACKAGE_STAGE}/doc/changelog @ONLY)
find_program(GZIP gzip REQUIRED)
set(PACKAGE_DOCS ${PACKAGE_STAGE}/doc/puffino.6.gz ${PACKAGE_STAGE}/doc/changelog.gz
                 ${PACKAGE_STAGE}/doc/copyright)
add_custom_command(OUTPUT ${PACKAGE_STAGE}/doc/puffino.6.gz ${PACKAGE_STAGE}/doc/changelog.gz
  COMMAND ${GZIP} -9nkf ${PACKAGE_STAGE}/doc/puffino.6 ${PACKAGE_STAGE}/doc/changelog
  DEPENDS ${PACKAGE_STAGE}/doc/puffino.6 ${PACKAGE_STAGE}/doc/changelog VERBATIM)
add_custom_command(OUTPUT ${PACKAGE_STAGE}/doc/copyright
  COMMAND ${CMAKE_COMMAND} -DLICENSE=${PROJECT_SOURCE_DIR}/LICENSE -DFONT_LICENSE=${PUFFINO_FONTS_DIR}/OFL.txt
          -DOUTPUT=${PACKAGE_STAGE}/doc/copyright -P ${PROJECT_SOURCE_DIR}/cmake/DebianCopyright.cmake
  DEPENDS ${PROJECT_SOURCE_DIR}/LICENSE ${PUFFINO_FONTS_DIR}/OFL.txt
          ${PROJECT_SOURCE_DIR}/cmake/DebianCopyright.cmake VERBATIM)

# What goes where, below /usr. cpack installs these into its stage after
# building the "preinstall" target, which would build all, this package
# among it, again: the package's own dependencies are enough.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Where Debian keeps games; the desktop entry names the full path.
install(TARGETS puffino_shipped RUNTIME DESTINATION games)
install(FILES ${POSE_PICTURES} DESTINATION share/puffino/assets/penguin)
install(FILES ${PUFFINO_FONT_FILES} DESTINATION share/puffino/Fonts)
install(FILES ${PACKAGE_SOURCES}/puffino.desktop DESTINATION share/applications)
foreach(size IN LISTS ICON_SIZES)
  install(FILES ${CMAKE_BINARY_DIR}/resources/icon-${size}.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME puffino.png)
endforeach()
install(FILES ${PACKAGE_STAGE}/doc/puffino.6.gz DESTINATION share/man/man6)
install(FILES ${PACKAGE_STAGE}/doc/copyright ${PACKAGE_STAGE}/doc/changelog.gz DESTINATION share/doc/puffino)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME puffino)
set(CPACK_PACKAGE_VENDOR ${PUFFINO_PUBLISHER})
set(CPACK_PACKAGE_CONTACT ${PUFFINO_MAINTAINER})
set(CPACK_PACKAGE_DIRECTORY ${PACKAGE_STAGE})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "soap bubbles to pop, a full-screen toy for toddlers")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [[
Puffino covers every screen with a calm landscape where soap bubbles rise
slowly from the bottom. A small child pops them with a touch or a click:
each pop bursts into coloured droplets with a soft sound and scores a
point, and the penguin blows a stream of bubbles while it is held down.

Puffino is made to be left in front of a child. It keeps its windows above
all others, holds the keyboard so that stray keys do nothing, and can keep
the sound volume under a ceiling set in its settings file. Play ends with
the finish button or Alt+F4.]])
include(CPack)

# cpack stages and packs in package/; only the .deb moves on to dist/, beside
# the Windows release.
add_custom_command(OUTPUT ${DEB_FILE}
  COMMAND ${CMAKE_CPACK_COMMAND} -G DEB --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
  COMMAND ${CMAKE_COMMAND} -E copy ${PACKAGE_STAGE}/${DEB_NAME} ${DEB_FILE}
  DEPENDS puffino_shipped ${POSE_PICTURES} ${PUFFINO_FONT_FILES} ${ICON_PNGS} ${PACKAGE_DOCS}
          ${PACKAGE_SOURCES}/puffino.desktop
          ${CMAKE_BINARY_DIR}/CPackConfig.cmake
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  COMMENT "Debian package ${DEB_NAME}" VERBATIM)
add_custom_target(deb ALL DEPENDS ${DEB_FILE})
