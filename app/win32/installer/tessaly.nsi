; The Windows installer: both programs, a Start-menu entry, App Paths, an
; entry in the list of programs and Explorer's "Rename with Tessaly" on
; files and folders. Per machine for an administrator; per user (in the
; person's own programs folder and registry) for anyone else, or with
; /CurrentUser. Silent with /S. The uninstaller takes all of it away and
; leaves the person's settings alone.
;
; makensis -DVERSION=1.0.14 -DWINDOW_EXE=... -DCLI_EXE=... -DICON=... -DOUTFILE=... tessaly.nsi

Unicode true
; A 64-bit stub: a 64-bit-only system (a wine64 prefix) cannot start the
; default 32-bit one.
Target amd64-unicode
SetCompressor /SOLID lzma
; An administrator is asked to raise the rights; anyone else installs as
; they are, for themselves.
RequestExecutionLevel highest

!include FileFunc.nsh
!include LogicLib.nsh

Name "Tessaly"
OutFile "${OUTFILE}"
Icon "${ICON}"
UninstallIcon "${ICON}"
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

; Every key below goes under SHCTX: HKLM per machine, HKCU per user.
Function .onInit
  SetRegView 64
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/CurrentUser" $1
  ${IfNot} ${Errors}
    StrCpy $2 "User"
  ${Else}
    UserInfo::GetAccountType
    Pop $2
  ${EndIf}
  ${If} $2 == "Admin"
    SetShellVarContext all
    ${If} $INSTDIR == ""
      StrCpy $INSTDIR "$PROGRAMFILES64\Tessaly"
    ${EndIf}
  ${Else}
    SetShellVarContext current
    ${If} $INSTDIR == ""
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Tessaly"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Per user when the person's own list of programs names this folder.
Function un.onInit
  SetRegView 64
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    SetShellVarContext current
  ${Else}
    SetShellVarContext all
  ${EndIf}
FunctionEnd

!macro Verb KEY
  WriteRegStr SHCTX "${KEY}" "" "Rename with Tessaly"
  WriteRegStr SHCTX "${KEY}" "Icon" "$INSTDIR\tessaly.exe"
  WriteRegStr SHCTX "${KEY}\command" "" '"$INSTDIR\tessaly.exe" "%1"'
!macroend

Section "Tessaly"
  SetOutPath "$INSTDIR"
  File "/oname=tessaly.exe" "${WINDOW_EXE}"
  File "/oname=tessaly-cli.exe" "${CLI_EXE}"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Tessaly.lnk" "$INSTDIR\tessaly.exe"

  WriteRegStr SHCTX "${APP_PATHS_KEY}" "" "$INSTDIR\tessaly.exe"
  WriteRegStr SHCTX "${APP_PATHS_KEY}" "Path" "$INSTDIR"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Tessaly ${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Tessaly"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tessaly.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1

  !insertmacro Verb "${FILE_VERB_KEY}"
  !insertmacro Verb "${FOLDER_VERB_KEY}"
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\tessaly.exe"
  Delete "$INSTDIR\tessaly-cli.exe"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Tessaly.lnk"
  DeleteRegKey SHCTX "${APP_PATHS_KEY}"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  DeleteRegKey SHCTX "${FILE_VERB_KEY}"
  DeleteRegKey SHCTX "${FOLDER_VERB_KEY}"
SectionEnd
