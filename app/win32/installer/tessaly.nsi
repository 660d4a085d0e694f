; The Windows installer: both programs per machine, a Start-menu entry,
; App Paths, an entry in the list of programs and Explorer's "Rename with
; Tessaly" on files and folders. Silent with /S. The uninstaller takes all
; of it away and leaves the person's settings alone.
;
; makensis -DVERSION=1.0.14 -DWINDOW_EXE=... -DCLI_EXE=... -DICON=... -DOUTFILE=... tessaly.nsi

Unicode true
; A 64-bit stub: a 64-bit-only system (a wine64 prefix) cannot start the
; default 32-bit one.
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

Name "Tessaly"
OutFile "${OUTFILE}"
Icon "${ICON}"
UninstallIcon "${ICON}"
InstallDir "$PROGRAMFILES64\Tessaly"
ShowInstDetails nevershow
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tessaly"
VIAddVersionKey "FileDescription" "Tessaly setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "Tessaly"
VIAddVersionKey "LegalCopyright" "Tessaly"

; The program records its own folder under this key too, so the
; uninstaller takes that away with the entry.
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessaly_is1"
!define APP_PATHS_KEY "Software\Microsoft\Windows\CurrentVersion\App Paths\tessaly.exe"
!define FILE_VERB_KEY "Software\Classes\*\shell\Tessaly"
!define FOLDER_VERB_KEY "Software\Classes\Directory\shell\Tessaly"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Function .onInit
  SetRegView 64
  SetShellVarContext all
FunctionEnd

Function un.onInit
  SetRegView 64
  SetShellVarContext all
FunctionEnd

!macro Verb KEY
  WriteRegStr HKLM "${KEY}" "" "Rename with Tessaly"
  WriteRegStr HKLM "${KEY}" "Icon" "$INSTDIR\tessaly.exe"
  WriteRegStr HKLM "${KEY}\command" "" '"$INSTDIR\tessaly.exe" "%1"'
!macroend

Section "Tessaly"
  SetOutPath "$INSTDIR"
  File "/oname=tessaly.exe" "${WINDOW_EXE}"
  File "/oname=tessaly-cli.exe" "${CLI_EXE}"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Tessaly.lnk" "$INSTDIR\tessaly.exe"

  WriteRegStr HKLM "${APP_PATHS_KEY}" "" "$INSTDIR\tessaly.exe"
  WriteRegStr HKLM "${APP_PATHS_KEY}" "Path" "$INSTDIR"

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Tessaly ${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Tessaly"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tessaly.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1

  !insertmacro Verb "${FILE_VERB_KEY}"
  !insertmacro Verb "${FOLDER_VERB_KEY}"
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\tessaly.exe"
  Delete "$INSTDIR\tessaly-cli.exe"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Tessaly.lnk"
  DeleteRegKey HKLM "${APP_PATHS_KEY}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
  DeleteRegKey HKLM "${FILE_VERB_KEY}"
  DeleteRegKey HKLM "${FOLDER_VERB_KEY}"
SectionEnd
