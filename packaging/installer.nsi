; The installer. build_package compiles it with VERSION, TREE (what the archive holds), LISTS (a folder with the lists
; of files made from it), PICTURE, TEXTS and OUTPUT.
;
; One set-up for both architectures and both scopes: for the machine, or for the current user without administrator
; rights. The program itself is a 64-bit one, so it needs a 64-bit Windows. Exit status: 0 done, 1 cancelled by the
; user, 2 failed with everything taken back.
Unicode true
Target amd64-unicode
ManifestDPIAware true
SetCompressor /SOLID lzma
; File times would differ from one build to the next.
SetDateSave off

!define PRODUCT "Tessel"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
!define UNINSTALLER "uninstall.exe"
!define FAILED 2

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_NOUNINSTALL
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "${PRODUCT}"
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INIT_TEXT_ALLUSERSNOTPOSSIBLE "$(TextNotForAllUsers)"
!include "MultiUser.nsh"
!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"

!define MUI_ICON "${NSISDIR}/Contrib/Graphics/Icons/modern-install-blue-full.ico"
!define MUI_UNICON "${NSISDIR}/Contrib/Graphics/Icons/modern-uninstall-blue-full.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${TREE}/LICENSE.txt"
!define MUI_PAGE_HEADER_TEXT "$(TextScopeTitle)"
!define MUI_PAGE_HEADER_SUBTEXT "$(TextScopeSubtitle)"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_TOP "$(TextScopeTop)"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_ALLUSERS "$(TextScopeAllUsers)"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_CURRENTUSER "$(TextScopeCurrentUser)"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; The user's language is taken when it is one of these, else the first.
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "English"
!include "${TEXTS}"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
!macro VersionTexts language description
  VIAddVersionKey /LANG=${language} "ProductName" "${PRODUCT}"
  VIAddVersionKey /LANG=${language} "ProductVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "FileDescription" "${description}"
  VIAddVersionKey /LANG=${language} "LegalCopyright" "Copyright (c) 2026 the Tessel authors. MIT licence."
  VIAddVersionKey /LANG=${language} "OriginalFilename" "tessel-${VERSION}-setup.exe"
!macroend
!insertmacro VersionTexts ${LANG_SPANISH} "Instalador de Tessel, diseñador de consultas SQL"
!insertmacro VersionTexts ${LANG_ENGLISH} "Installer of Tessel, a visual SQL query designer"

Var GivenFolder    ; what /D= says, empty without it
Var Scope          ; regsvr32's options for the scope of this installation
Var Trouble        ; what is said when the installation is given up

; regsvr32 of one architecture on the component of that architecture; its answer in $0.
!macro Regsvr32 options system folder
  ExecWait '"${system}\regsvr32.exe" /s ${options} $Scope "$INSTDIR\${folder}\tesseldsn.dll"' $0
!macroend

; Both are for the installer (prefix "") and the uninstaller (prefix "un.").
!macro SharedFunctions prefix
  Function ${prefix}UseScope
    ${If} $MultiUser.InstallMode == "AllUsers"
      StrCpy $Scope ""
    ${Else}
      StrCpy $Scope "/n /i:user"
    ${EndIf}
  FunctionEnd

  Function ${prefix}RemoveEverything
    Call ${prefix}UseScope
    !insertmacro Regsvr32 "/u" "$SYSDIR" "x64"
    ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
      !insertmacro Regsvr32 "/u" "$WINDIR\SysWOW64" "x86"
    ${EndIf}
    ${If} $MultiUser.InstallMode == "AllUsers"
      Delete /REBOOTOK "$COMMONFILES64\Tessel\tesseldsn.chm"
      RMDir "$COMMONFILES64\Tessel"
      Delete /REBOOTOK "$COMMONFILES32\Tessel\tesseldsn.chm"
      RMDir "$COMMONFILES32\Tessel"
    ${Else}
      Delete /REBOOTOK "$INSTDIR\x64\tesseldsn.chm"
      Delete /REBOOTOK "$INSTDIR\x86\tesseldsn.chm"
    ${EndIf}
    !include "${LISTS}/remove_files.nsh"
    Delete "$INSTDIR\${UNINSTALLER}"
    ; The working folder of this program would keep the folder in being.
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    ${If} $MultiUser.InstallMode == "CurrentUser"
      ; This folder of the user's programs may have come with us. It goes only when it is empty.
      RMDir "$LOCALAPPDATA\Programs"
    ${EndIf}
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  FunctionEnd
!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

Function .onInit
  SetRegView 64
  ; Nobody would answer the message that follows on missing rights.
  ${If} ${Silent}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
      UserInfo::GetAccountType
      Pop $1
      ${If} $1 != "Admin"
        SetErrorLevel ${FAILED}
        Quit
      ${EndIf}
    ${EndIf}
  ${EndIf}
  ; The next line sets the folder, whatever the command line said.
  StrCpy $GivenFolder $INSTDIR
  !insertmacro MULTIUSER_INIT
  ${If} $GivenFolder != ""
    StrCpy $INSTDIR $GivenFolder
  ${EndIf}
FunctionEnd

; A component that a program has loaded can be opened for reading only.
!macro StopWhenInUse folder
  ${If} ${FileExists} "$INSTDIR\${folder}\tesseldsn.dll"
    ClearErrors
    FileOpen $0 "$INSTDIR\${folder}\tesseldsn.dll" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONSTOP "$(TextInUse)" /SD IDOK
      SetErrorLevel ${FAILED}
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

; What an earlier version put into the same scope goes first, so that nothing of it stays behind.
Function RemoveEarlierVersion
  ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $1 == ""
  ${OrIfNot} ${FileExists} "$1\${UNINSTALLER}"
    Return
  ${EndIf}
  ; With _?= the uninstaller runs from where it lies, so that it can be waited for, and cannot remove itself.
  ExecWait '"$1\${UNINSTALLER}" /S _?=$1' $0
  Delete "$1\${UNINSTALLER}"
  RMDir "$1"
FunctionEnd

Function GiveUp
  MessageBox MB_OK|MB_ICONSTOP "$Trouble" /SD IDOK
  Call RemoveEverything
  SetErrorLevel ${FAILED}
  Quit
FunctionEnd

Section
  !insertmacro StopWhenInUse "x64"
  !insertmacro StopWhenInUse "x86"
  Call RemoveEarlierVersion
  Call UseScope
  ; In silence, a file that cannot be written is left out and only this flag tells.
  ClearErrors
  !include "${LISTS}/install_files.nsh"
  ; The help file has one place for the machine, which each architecture knows under a name of its own; a user without
  ; administrator rights cannot write there and gets it beside the component.
  ${If} $MultiUser.InstallMode == "AllUsers"
    SetOutPath "$COMMONFILES64\Tessel"
    File "${TREE}/x64/Tessel.Designer/tesseldsn.chm"
    SetOutPath "$COMMONFILES32\Tessel"
    File "${TREE}/x86/Tessel.Designer/tesseldsn.chm"
  ${Else}
    SetOutPath "$INSTDIR\x64"
    File "${TREE}/x64/Tessel.Designer/tesseldsn.chm"
    SetOutPath "$INSTDIR\x86"
    File "${TREE}/x86/Tessel.Designer/tesseldsn.chm"
  ${EndIf}
  SetOutPath "$INSTDIR"
  ${If} ${Errors}
    StrCpy $Trouble "$(TextNotWritten)"
    Call GiveUp
  ${EndIf}

  StrCpy $Trouble "$(TextNotRegistered)"
  !insertmacro Regsvr32 "" "$SYSDIR" "x64"
  ${If} $0 != 0
    Call GiveUp
  ${EndIf}
  ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
    !insertmacro Regsvr32 "" "$WINDIR\SysWOW64" "x86"
    ${If} $0 != 0
      Call GiveUp
    ${EndIf}
  ${Else}
    DetailPrint "$(TextNot32Bit)"
  ${EndIf}

  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Comments" "$(TextDescription)"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; The scope is that whose entry names this folder; the machine's, unless the user's does.
Function un.onInit
  SetRegView 64
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    StrCpy $MultiUser.InstallMode "CurrentUser"
    SetShellVarContext current
    Return
  ${EndIf}
  StrCpy $MultiUser.InstallMode "AllUsers"
  SetShellVarContext all
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != "Admin"
    MessageBox MB_OK|MB_ICONSTOP "$(TextNeedsAdministrator)" /SD IDOK
    SetErrorLevel ${FAILED}
    Quit
  ${EndIf}
FunctionEnd

Section "Uninstall"
  Call un.RemoveEverything
SectionEnd
