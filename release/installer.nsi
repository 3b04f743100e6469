; Puffino's installer: a per-user install that needs no administrator. It
; copies the release folder to %LOCALAPPDATA%\Programs\Puffino, adds a
; Start-menu shortcut and registers an uninstaller for the current user only.
; Uninstalling removes exactly what was installed and never the player's own
; folder under %APPDATA% (config.ini and the best score).
;
; The build runs makensis with:
;   VERSION       the project version, e.g. 0.1.0
;   VERSION_QUAD  the same with four numbers, e.g. 0.1.0.0
;   DIST          the release folder (Puffino.exe, assets, Fonts, texts)
;   ICON          Puffino.ico
;   PICTURE       the welcome and finish pages' picture (164 x 314 BMP)
;   PUBLISHER, COPYRIGHT, DESCRIPTION
;   OUTFILE       the installer to write

; A 64-bit installer: the 32-bit stub would not run where only 64-bit
; Windows programs can.
Target amd64-unicode
RequestExecutionLevel user
ManifestDPIAware true
SetCompressor /SOLID lzma
; No build-time file dates inside: the same files make the same installer.
SetDateSave off

!include "MUI2.nsh"
!include "FileFunc.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Puffino"

Name "Puffino"
OutFile "${OUTFILE}"
InstallDir "$LOCALAPPDATA\Programs\Puffino"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Puffino ${VERSION}"

VIProductVersion "${VERSION_QUAD}"
VIFileVersion "${VERSION_QUAD}"
VIAddVersionKey /LANG=1033 "ProductName" "Puffino"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileDescription" "Puffino ${VERSION} setup"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "${COPYRIGHT}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Puffino.exe"
; Puffino covers every screen at once: a parent starts it when the child is
; ready, not as a side effect of setup.
!define MUI_FINISHPAGE_RUN_NOTCHECKED
; The readme says how play ends, so it is offered first.
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\README.txt"

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
; The installer speaks the language of Windows when it is one of these.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"

; Every file Puffino ships, folder by folder: the installer copies this list
; and the uninstaller removes this list, nothing else.
!macro ForEachShippedFile DO
  !insertmacro ${DO} "" "Puffino.exe"
  !insertmacro ${DO} "" "README.txt"
  !insertmacro ${DO} "" "LICENSE.txt"
  !insertmacro ${DO} "\assets\penguin" "idle.png"
  !insertmacro ${DO} "\assets\penguin" "bubble.png"
  !insertmacro ${DO} "\assets\penguin" "yatta.png"
  !insertmacro ${DO} "\assets\penguin" "hurray.png"
  !insertmacro ${DO} "\Fonts" "MPLUSRounded1c-Regular.ttf"
  !insertmacro ${DO} "\Fonts" "MPLUSRounded1c-Black.ttf"
  !insertmacro ${DO} "\Fonts" "OFL.txt"
!macroend
!macro InstallFile FOLDER NAME
  SetOutPath "$INSTDIR${FOLDER}"
  File "${DIST}${FOLDER}\${NAME}"
!macroend
!macro RemoveFile FOLDER NAME
  Delete "$INSTDIR${FOLDER}\${NAME}"
!macroend

Section "Puffino"
  !insertmacro ForEachShippedFile InstallFile
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ; The user's own Start menu: this install is the current user's alone.
  SetShellVarContext current
  CreateShortcut "$SMPROGRAMS\Puffino.lnk" "$INSTDIR\Puffino.exe" "" "$INSTDIR\Puffino.exe" 0

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Puffino"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Comments" "${DESCRIPTION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Puffino.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Uninstall"
  !insertmacro ForEachShippedFile RemoveFile
  Delete "$INSTDIR\Uninstall.exe"
  ; Folders go only when empty: anything a parent put there stays.
  RMDir "$INSTDIR\assets\penguin"
  RMDir "$INSTDIR\assets"
  RMDir "$INSTDIR\Fonts"
  RMDir "$INSTDIR"
  SetShellVarContext current
  Delete "$SMPROGRAMS\Puffino.lnk"
  ; Last: once the entry is gone from Apps, the uninstaller has done its work.
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
