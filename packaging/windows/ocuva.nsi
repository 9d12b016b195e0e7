; The installer, for one user and without administrator rights. Called by packaging/windows/build with
; VERSION, STAGE (the folder with all files) and OUT.
Target amd64-unicode
Unicode true
!include MUI2.nsh
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Ocuva"

Name "Ocuva"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Ocuva"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Ocuva"
VIAddVersionKey "FileDescription" "Ocuva installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT license"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\ocuva.exe"
!insertmacro MUI_PAGE_LICENSE "${STAGE}\license.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section
    SetOutPath "$INSTDIR"
    ; Host libraries that the user has put into the program's folder stay.
    RMDir /r "$INSTDIR\manual"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Ocuva.lnk" "$INSTDIR\ocuva.exe"
    WriteRegStr HKCU "${KEY}" "DisplayName" "Ocuva"
    WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\ocuva.exe"
    WriteRegStr HKCU "${KEY}" "Publisher" "The Ocuva authors"
    WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${KEY}" "EstimatedSize" ${SIZE_KIB}
    WriteRegDWORD HKCU "${KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    Delete "$INSTDIR\ocuva.exe"
    Delete "$INSTDIR\tarnsend.exe"
    Delete "$INSTDIR\license.txt"
    Delete "$INSTDIR\readme.txt"
    RMDir /r "$INSTDIR\manual"
    RMDir /r "$INSTDIR\simulated-host"
    Delete "$INSTDIR\uninstall.exe"
    ; Only when nothing of the user's is left in it.
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Ocuva.lnk"
    DeleteRegKey HKCU "${KEY}"
SectionEnd
