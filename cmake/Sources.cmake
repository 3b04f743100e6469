# The source lists shared by the native and the Windows build.
# A file whose name ends in _win.cpp talks to Windows, one ending in
# _linux.cpp to Linux's libraries (cairo, SDL, ...); every other source of
# the subsystem folders is portable and is compiled natively as well, so a
# stray Windows include outside a _win file breaks the native build.
set(PUFFINO_SUBSYSTEMS app settings play render assets text)

set(PUFFINO_PORTABLE_SOURCES "")
set(PUFFINO_WIN_SOURCES "")
set(PUFFINO_LINUX_SOURCES "")
set(PUFFINO_PORTABLE_HEADERS "")
foreach(dir IN LISTS PUFFINO_SUBSYSTEMS)
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${dir}/*.cpp")
  foreach(source IN LISTS sources)
    if(source MATCHES "_win\\.cpp$")
      list(APPEND PUFFINO_WIN_SOURCES "${source}")
    elseif(source MATCHES "_linux\\.cpp$")
      list(APPEND PUFFINO_LINUX_SOURCES "${source}")
    else()
      list(APPEND PUFFINO_PORTABLE_SOURCES "${source}")
    endif()
  endforeach()
  file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${dir}/*.h")
  foreach(header IN LISTS headers)
    if(NOT header MATCHES "_(win|linux)\\.h$")
      list(APPEND PUFFINO_PORTABLE_HEADERS "${header}")
    endif()
  endforeach()
endforeach()

# The Linux edition's shell: the files of app/ that talk to SDL and X11.
# They stand apart from the core so that the native tests, which link
# stand-ins for the platform's services, never link SDL.
set(PUFFINO_LINUX_SHELL_SOURCES "")
foreach(source IN LISTS PUFFINO_LINUX_SOURCES)
  if(source MATCHES "/app/[^/]*_linux\\.cpp$")
    list(APPEND PUFFINO_LINUX_SHELL_SOURCES "${source}")
  endif()
endforeach()
if(PUFFINO_LINUX_SHELL_SOURCES)
  list(REMOVE_ITEM PUFFINO_LINUX_SOURCES ${PUFFINO_LINUX_SHELL_SOURCES})
endif()
# The entry points and the run they start (the host's start-up, the same
# in both editions) stand apart so that test programs can link the shell
# and the core without them.
set(PUFFINO_START_UP_SOURCE "${PROJECT_SOURCE_DIR}/app/start_up.cpp")
list(REMOVE_ITEM PUFFINO_PORTABLE_SOURCES "${PUFFINO_START_UP_SOURCE}")
list(REMOVE_ITEM PUFFINO_LINUX_SHELL_SOURCES "${PROJECT_SOURCE_DIR}/app/main_linux.cpp")
set(PUFFINO_LINUX_ENTRY_SOURCE "${PROJECT_SOURCE_DIR}/app/main_linux.cpp" "${PUFFINO_START_UP_SOURCE}")
list(REMOVE_ITEM PUFFINO_WIN_SOURCES "${PROJECT_SOURCE_DIR}/app/main_win.cpp")
set(PUFFINO_ENTRY_SOURCE "${PROJECT_SOURCE_DIR}/app/main_win.cpp" "${PUFFINO_START_UP_SOURCE}")
