; The installer. It is given by packaging/windows/build: VERSION, FOLDER (what is installed), LISTS (two files: what the
; uninstaller takes away), TARGET (the installer's own file).
!include LogicLib.nsh
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Visual Scintra"
OutFile "${TARGET}"
InstallDir "$PROGRAMFILES64\Visual Scintra"
InstallDirRegKey HKLM "Software\Visual Scintra" "Folder"
RequestExecutionLevel admin
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Visual Kerova - Visual Scintra"
VIAddVersionKey CompanyName "Visual Scintra maintainers"
VIAddVersionKey FileDescription "Installs Visual Scintra"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Visual Scintra maintainers"
Icon "${ICON}"
UninstallIcon "${ICON}"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Visual Scintra"

; Windows writes in no library that is loaded: nothing is begun while a program runs, for it would be left half done.
!macro WaitUntilClosed FOLDER
    ${Do}
        ${IfNot} ${FileExists} "${FOLDER}\Qt6Core.dll"
            ${Break}
        ${EndIf}
        ClearErrors
        FileOpen $1 "${FOLDER}\Qt6Core.dll" a
        ${IfNot} ${Errors}
            FileClose $1
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Visual Scintra is open on this computer. Close it, and its tools, then try again." \
            /SD IDCANCEL IDRETRY +2
        Abort "Visual Scintra is open."
    ${Loop}
!macroend

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Section
    SetShellVarContext all
    SetRegView 64
    ; what an earlier one installed goes first, so that no library of it stays
    ReadRegStr $0 HKLM "Software\Visual Scintra" "Folder"
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$0\uninstall.exe"
        !insertmacro WaitUntilClosed "$0"
        ExecWait '"$0\uninstall.exe" /S _?=$0'
        Delete "$0\uninstall.exe"
        RMDir "$0"
    ${EndIf}
    SetOutPath "$INSTDIR"
    File /r "${FOLDER}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Visual Scintra.lnk" "$INSTDIR\visual-scintra.exe"
    WriteRegStr HKLM "Software\Visual Scintra" "Folder" "$INSTDIR"
    WriteRegStr HKLM "${ENTRY}" "DisplayName" "Visual Scintra"
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${ENTRY}" "Publisher" "Visual Scintra maintainers"
    WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\visual-scintra.exe"
    WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
SectionEnd

; By name, each file that was installed and no other: whatever a person has put into the folder stays, and a folder that
; is not empty with it.
Section Uninstall
    SetShellVarContext all
    SetRegView 64
    !insertmacro WaitUntilClosed "$INSTDIR"
    !include "${LISTS}/files.nsh"
    Delete "$INSTDIR\uninstall.exe"
    !include "${LISTS}/folders.nsh"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Visual Scintra.lnk"
    DeleteRegKey HKLM "${ENTRY}"
    DeleteRegKey HKLM "Software\Visual Scintra"
SectionEnd
