# The three test tiers and the fuzzers, all in CTest; the labels unit, wine,
# e2e and fuzz name them.
#  unit: native GoogleTest on the portable core, plain and sanitized.
#  wine: GoogleTest programs built with mingw, run under Wine by the harness.
#  e2e:  the real Puffino.exe under Wine in Xvfb, and the Linux edition on a
#        dummy Xorg, driven from Python.
#  fuzz: libFuzzer on the portable core, natively, a few seconds each.
set(HARNESS_DIR ${PROJECT_SOURCE_DIR}/tests/harness)
set(WINE_TEST_PROGRAMS ${PUFFINO_WINDOWS_BUILD}/tests)
set(HARNESS_ENVIRONMENT
  "PUFFINO_BUILD_DIR=${CMAKE_BINARY_DIR};PYTHONPATH=${HARNESS_DIR};PUFFINO_VERSION=${PROJECT_VERSION}")

add_test(NAME unit.core COMMAND unit_tests)
add_test(NAME unit.core_sanitized COMMAND unit_tests_sanitized)
add_test(NAME unit.host COMMAND host_tests)
set_tests_properties(unit.core unit.core_sanitized unit.host PROPERTIES LABELS unit TIMEOUT 300)

# One freshly booted prefix per test run; every Wine session copies it.
add_test(NAME wine.prefix COMMAND ${Python3_EXECUTABLE} ${HARNESS_DIR}/prepare_prefix.py)
set_tests_properties(wine.prefix PROPERTIES FIXTURES_SETUP wine_prefix LABELS wine
                     ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT 600)

# puffino_wine_test(NAME [INSTALL_FONTS file...] [REPLACE_FONTS name=font...]
#                   COMMAND program args...), on the two monitors of the harness
function(puffino_wine_test name)
  cmake_parse_arguments(ARG "" "" "INSTALL_FONTS;REPLACE_FONTS;COMMAND" ${ARGN})
  set(options --label wine.${name})
  foreach(font IN LISTS ARG_INSTALL_FONTS)
    list(APPEND options --install-font ${font})
  endforeach()
  foreach(replacement IN LISTS ARG_REPLACE_FONTS)
    list(APPEND options --replace-font ${replacement})
  endforeach()
  add_test(NAME wine.${name}
           COMMAND ${Python3_EXECUTABLE} ${HARNESS_DIR}/run_in_wine.py ${options} ${ARG_COMMAND})
  set_tests_properties(wine.${name} PROPERTIES FIXTURES_REQUIRED wine_prefix LABELS wine
                       ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT 600)
endfunction()

# puffino_e2e_test(NAME unittest-name TIMEOUT seconds [FIXTURE fixture])
function(puffino_e2e_test name target)
  cmake_parse_arguments(ARG "" "FIXTURE;TIMEOUT" "" ${ARGN})
  add_test(NAME e2e.${name} COMMAND ${Python3_EXECUTABLE} -m unittest -v ${target}
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/tests/e2e)
  set_tests_properties(e2e.${name} PROPERTIES FIXTURES_REQUIRED "${ARG_FIXTURE}" LABELS e2e
                       ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT ${ARG_TIMEOUT})
endfunction()

puffino_wine_test(shell COMMAND ${WINE_TEST_PROGRAMS}/shell_tests.exe)
puffino_wine_test(resources COMMAND ${WINE_TEST_PROGRAMS}/resources_tests.exe)
# config.ini and high_score.txt on real files under Wine.
puffino_wine_test(settings COMMAND ${WINE_TEST_PROGRAMS}/settings_tests.exe)
# The pose pictures' loading. A 16384 x 16384 picture takes half a minute:
# on its own, beside the others.
puffino_wine_test(pose_pictures COMMAND ${WINE_TEST_PROGRAMS}/picture_tests.exe --gtest_filter=-*HugePicture*)
puffino_wine_test(pose_pictures.huge COMMAND ${WINE_TEST_PROGRAMS}/picture_tests.exe --gtest_filter=*HugePicture*)
# The font choice with two of the five fallback families "installed" (the
# first without a bold face, the regular rounded face; the third with one,
# DejaVu Sans), and with the shipped files.
puffino_wine_test(fonts COMMAND ${WINE_TEST_PROGRAMS}/text_tests.exe --gtest_filter=-InstalledFallbacks.*)
puffino_wine_test(fonts.installed_fallbacks
  INSTALL_FONTS ${PUFFINO_WINDOWS_BUILD}/Fonts/MPLUSRounded1c-Regular.ttf
  REPLACE_FONTS "HGP創立者角ポップ体 W9=Rounded Mplus 1c" "Yu Kyokasho Yoko=DejaVu Sans"
  COMMAND ${WINE_TEST_PROGRAMS}/text_tests.exe --gtest_filter=InstalledFallbacks.*)

# What is drawn, against the reference pictures in tests/reference_pictures
# (DejaVu Sans standing in for the symbol font, which Wine lacks); the
# pictures and the difference maps of a failure land in the build tree.
# PUFFINO_REMAKE_PICTURES=1 (./puffino pictures) writes the references anew.
set(REFERENCE_PICTURES Z:${PROJECT_SOURCE_DIR}/tests/reference_pictures/gdiplus)
set(PICTURES_OUT Z:${CMAKE_BINARY_DIR}/test-artifacts/pictures)
set(POSE_FOLDER Z:${PUFFINO_WINDOWS_BUILD}/assets/penguin)
puffino_wine_test(pictures REPLACE_FONTS "Segoe UI Symbol=DejaVu Sans"
  COMMAND ${WINE_TEST_PROGRAMS}/scene_pictures.exe ${REFERENCE_PICTURES} ${PICTURES_OUT} ${POSE_FOLDER}
          --gtest_filter=-*without_fonts)
puffino_wine_test(pictures.without_fonts
  COMMAND ${WINE_TEST_PROGRAMS}/without_fonts/scene_pictures.exe ${REFERENCE_PICTURES} ${PICTURES_OUT}
          ${POSE_FOLDER} --gtest_filter=*without_fonts)

# The real Puffino.exe, played as scenario tables (tests/e2e/scenarios.py),
# one Wine session per monitor layout: its windows, keys through the keyboard
# guard, files under %APPDATA%, the captured sound, exit codes, the faults it
# lives through, the installer and the unpacked zip.
puffino_e2e_test(two_monitors test_wine_scenarios.TwoMonitors FIXTURE wine_prefix TIMEOUT 900)
puffino_e2e_test(left_of_primary_at_144_dpi test_wine_scenarios.LeftOfPrimaryAt144Dpi FIXTURE wine_prefix
                 TIMEOUT 900)
# The Linux edition plays the shared tables and its own on a dummy Xorg with
# two monitors, learning the landscapes from a gallery painted once a run.
add_test(NAME e2e.native_gallery COMMAND scenery_gallery ${CMAKE_BINARY_DIR}/native/gallery)
set_tests_properties(e2e.native_gallery PROPERTIES FIXTURES_SETUP native_gallery LABELS e2e)
puffino_e2e_test(native_two_monitors test_native_scenarios.NativeTwoMonitors FIXTURE native_gallery TIMEOUT 600)
# The desktop scenarios under real window managers on the same Xorg
# (tests/harness/desktops.py), one test per desktop: xfwm4 with its panel and
# i3, cheap ones that each showed faults of their own, and no window manager
# at all (only Puffino's own raise brings it back over a new window there);
# ./puffino desktops plays every desktop.
foreach(desktop Xfwm4Xfce4Panel I3 NoWindowManager)
  puffino_e2e_test(desktop.${desktop} test_desktops.${desktop} FIXTURE native_gallery TIMEOUT 600)
endforeach()
# The shipped files themselves: imports, build time, reproducible zip.
puffino_e2e_test(release test_release FIXTURE wine_prefix TIMEOUT 900)
# The Linux edition's Debian package: lintian, its menu entry, its files
# unpacked (tests/harness/linux_package.py unpacks it for other tests too).
puffino_e2e_test(linux_package test_linux_package TIMEOUT 300)
# The Linux edition with SDL's Wayland driver under a headless sway with the
# same two monitors as outputs (tests/harness/wayland_session.py).
puffino_e2e_test(wayland_sway test_wayland_scenarios.Sway FIXTURE native_gallery TIMEOUT 600)
# Made into the build tree on every test run, so a change that stops the demo
# from making them fails here; ./puffino screenshots makes the committed ones.
# Python without its site packages (-S): the demo runs on a python3 without
# numpy, which the tests' picture maths need and the demo does not.
add_test(NAME e2e.screenshots
         COMMAND ${Python3_EXECUTABLE} -S ${PROJECT_SOURCE_DIR}/tools/screenshots.py ${CMAKE_BINARY_DIR}/screenshots)
set_tests_properties(e2e.screenshots PROPERTIES LABELS e2e ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT 600)
# A minute of a toddler's play on two monitors at 144 DPI; ./puffino soak
# runs it for longer. Each edition: Puffino.exe under Wine, the Linux
# edition on a headless Xorg.
add_test(NAME e2e.soak COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/soak.py --edition wine
         --minutes 1 --out ${CMAKE_BINARY_DIR}/test-artifacts/soak)
set_tests_properties(e2e.soak PROPERTIES FIXTURES_REQUIRED wine_prefix LABELS e2e
                     ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT 600)
add_test(NAME e2e.soak_native COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/soak.py --edition native
         --minutes 1 --out ${CMAKE_BINARY_DIR}/test-artifacts/soak-native)
set_tests_properties(e2e.soak_native PROPERTIES LABELS e2e ENVIRONMENT "${HARNESS_ENVIRONMENT}" TIMEOUT 600)

# The fuzzers: a few seconds each (label fuzz), from the committed seeds and
# what earlier runs kept in build/fuzz/corpus; `./puffino fuzz` runs them
# longer. A finding stops the fuzzer and lands in build/fuzz/artifacts.
file(GLOB FUZZER_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/fuzz/*_fuzzer.cpp)
foreach(source IN LISTS FUZZER_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  set(corpora ${PUFFINO_FUZZ_BUILD}/corpus/${name})
  if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/tests/fuzz/seeds/${name})
    list(APPEND corpora ${PROJECT_SOURCE_DIR}/tests/fuzz/seeds/${name})
  endif()
  string(REPLACE "_fuzzer" "" short ${name})
  add_test(NAME fuzz.${short}
           COMMAND ${PUFFINO_FUZZ_BUILD}/${name} -seed=1 -max_total_time=5 -timeout=10
                   -artifact_prefix=${PUFFINO_FUZZ_BUILD}/artifacts/${name}- ${corpora})
  set_tests_properties(fuzz.${short} PROPERTIES LABELS fuzz TIMEOUT 120)
endforeach()
