# Writes the package's machine-readable copyright file: the program under
# the licence in LICENSE, the rounded fonts under the SIL Open Font Licence,
# each licence's whole text below. Run as a script:
#   cmake -DLICENSE=<LICENSE> -DFONT_LICENSE=<Fonts/OFL.txt> -DOUTPUT=<copyright> -P DebianCopyright.cmake
cmake_minimum_required(VERSION 3.25)

# A licence text as a field's continuation lines: one space in front, and
# " ." for an empty line.
function(continuation_lines file result)
  file(READ "${file}" text)
  string(REGEX REPLACE "[ \t\r]*\n" "\n" text "${text}")
  string(REGEX REPLACE "\n+$" "" text "${text}")
  string(REPLACE "\n" "\n " text " ${text}\n")
  # Twice: a run of empty lines overlaps itself.
  string(REPLACE "\n \n" "\n .\n" text "${text}")
  string(REPLACE "\n \n" "\n .\n" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

file(STRINGS "${LICENSE}" program_copyright REGEX "^Copyright " LIMIT_COUNT 1)
file(STRINGS "${FONT_LICENSE}" font_copyright REGEX "^Copyright " LIMIT_COUNT 1)
string(REGEX REPLACE "^Copyright (\\(c\\) )?" "" program_copyright "${program_copyright}")
string(REGEX REPLACE "^Copyright " "" font_copyright "${font_copyright}")
continuation_lines("${LICENSE}" program_licence)
continuation_lines("${FONT_LICENSE}" font_licence)

file(WRITE "${OUTPUT}" "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Puffino

Files: *
Copyright: ${program_copyright}
License: Expat

Files: usr/share/puffino/Fonts/*
Copyright: ${font_copyright}
License: OFL-1.1
Comment: M PLUS Rounded 1c, the Regular and Black faces. The licence also
 stands beside the fonts, in /usr/share/puffino/Fonts/OFL.txt.

License: Expat
${program_licence}
License: OFL-1.1
${font_licence}")
