; The installer, built by scripts/lib/installer, which defines VERSION, OUT, STAGE (what is installed), FILES (lists it) and
; PICTURES. Its exit codes stand in docs/quick-start.md. What it installs is listed in installed.txt, and that list is all
; that an uninstall or a newer version removes.
Unicode true
Target amd64-unicode ; 32-bit Windows refuses it by itself
ManifestSupportedOS all
ManifestDPIAware true
RequestExecutionLevel user ; consent is asked for when all users are chosen
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh

!define NAME "Kestrel EQ"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\com.quillon.kestreleq"
!define OWN "Quillon\Kestrel EQ" ; where uninstaller, licence and texts go
!define ABORTED 2
!define IN_USE 3
!define REFUSED 4

Name "${NAME}"
OutFile "${OUT}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME} setup"
VIAddVersionKey CompanyName "${MAKER}"
VIAddVersionKey LegalCopyright "${COPYRIGHT}"

Var Mode ; AllUsers or CurrentUser
Var Vst3 ; the folder that hosts look into
Var MadeVst3 ; how many folders are there because of us: it, the one above it, and the one above that
Var Account ; Admin where this process may change what concerns all users

!define MUI_ICON "${PICTURES}/setup.ico"
!define MUI_UNICON "${PICTURES}/setup.ico"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_BITMAP "${PICTURES}/header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "${PICTURES}/header.bmp"
!define MUI_HEADERIMAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_HEADERIMAGE_RIGHT
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURES}/side.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_ABORTWARNING

!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenElevated
!define MUI_WELCOMEPAGE_TEXT "This installs the equaliser ${NAME} ${VERSION} as a VST3 plug-in for 64-bit hosts.$\r$\n$\r$\nPlease close your hosts first."
!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenElevated
!define MUI_PAGE_HEADER_TEXT "Licence"
!define MUI_PAGE_HEADER_SUBTEXT "${NAME} is free software under the AGPL, version 3."
!define MUI_LICENSEPAGE_TEXT_TOP "The whole text:"
!define MUI_LICENSEPAGE_TEXT_BOTTOM "You need not accept this licence to use ${NAME}; it tells how you may pass it on."
!define MUI_LICENSEPAGE_BUTTON "$(^NextBtn)"
!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
Page custom ShowModePage LeaveModePage
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TEXT "${NAME} is installed. Start your host and let it rescan its plug-ins; it is listed under ${MAKER}."
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\Quick start.txt"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the quick start"
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Says why, and ends with this code, which a silent run tells alone.
!macro FailWith code text
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel ${code}
    Quit
!macroend

; A registry value of an installation of the mode in $Mode.
!macro ReadValue into name
    ${If} $Mode == AllUsers
        ReadRegStr ${into} HKLM "${KEY}" "${name}"
    ${Else}
        ReadRegStr ${into} HKCU "${KEY}" "${name}"
    ${EndIf}
!macroend

!macro WriteValue type name value
    ${If} $Mode == AllUsers
        WriteReg${type} HKLM "${KEY}" "${name}" ${value}
    ${Else}
        WriteReg${type} HKCU "${KEY}" "${name}" ${value}
    ${EndIf}
!macroend

!macro SharedFunctions un
; The folders of the mode in $Mode.
Function ${un}SetFolders
    ${If} $Mode == AllUsers
        StrCpy $INSTDIR "$PROGRAMFILES64\${OWN}"
        StrCpy $Vst3 "$COMMONFILES64\VST3"
    ${Else}
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${OWN}"
        StrCpy $Vst3 "$LOCALAPPDATA\Programs\Common\VST3"
    ${EndIf}
FunctionEnd

; Ends with IN_USE while a program has the module of $Vst3 loaded: Windows opens such a file for nobody's writing.
Function ${un}RequireUnused
    StrCpy $1 "$Vst3\KestrelEQ.vst3\Contents\x86_64-win\KestrelEQ.vst3"
    ${DoWhile} ${FileExists} "$1"
        SetFileAttributes "$1" NORMAL
        System::Call 'kernel32::CreateFileW(w r1, i 0xC0000000, i 7, p 0, i 3, i 0, p 0) p .r2 ?e'
        Pop $3
        ${If} $2 P<> -1
            System::Call 'kernel32::CloseHandle(p r2)'
            Return
        ${ElseIf} $3 <> 32
            !insertmacro FailWith ${ABORTED} "$1$\r$\ncannot be changed (Windows' error $3)."
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "A program has ${NAME} open:$\r$\n$1$\r$\n$\r$\nPlease close your host, then retry." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel ${IN_USE}
        Quit
    ${Loop}
FunctionEnd

; Removes what the list in file $R0 names and the list in file $R1 does not: files and, where nothing else is in them,
; folders. Their roots are $INSTDIR and $Vst3.
Function ${un}RemoveListed
    ClearErrors
    FileOpen $R2 "$R0" r
    ${DoUntil} ${Errors}
        FileRead $R2 $R3
        ${If} ${Errors}
            ${Break}
        ${EndIf}

        StrCpy $R5 ""
        FileOpen $R4 "$R1" r
        ${DoUntil} ${Errors}
            FileRead $R4 $R5
            ${If} $R5 == $R3
                ${Break}
            ${EndIf}
            StrCpy $R5 ""
        ${Loop}
        FileClose $R4
        ClearErrors

        ${If} $R5 == ""
            StrCpy $R6 $R3 5 ; "vst3:" or "own: "
            StrCpy $R3 $R3 -2 5 ; without the line's end
            ${If} $R6 == "vst3:"
                StrCpy $R3 "$Vst3\$R3"
            ${Else}
                StrCpy $R3 "$INSTDIR\$R3"
            ${EndIf}
            StrCpy $R6 $R3 1 -1
            ${If} $R6 == "\"
                RMDir "$R3"
            ${Else}
                SetFileAttributes "$R3" NORMAL
                Delete "$R3"
            ${EndIf}
            ClearErrors
        ${EndIf}
    ${Loop}
    FileClose $R2
FunctionEnd

; Removes the installation in $INSTDIR and $Vst3, all but a running uninstaller.
Function ${un}RemoveAll
    InitPluginsDir
    !insertmacro ReadValue $MadeVst3 "MadeFolders"
    CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\removed.txt"
    StrCpy $R0 "$PLUGINSDIR\removed.txt"
    StrCpy $R1 "$PLUGINSDIR\none.txt"
    Call ${un}RemoveListed
    Delete "$INSTDIR\installed.txt"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$INSTDIR\.." ; the maker's, if nothing else of the maker's is there
    ${If} $MadeVst3 >= 1
        RMDir "$Vst3"
    ${EndIf}
    ${If} $MadeVst3 >= 2
        RMDir "$Vst3\.."
    ${EndIf}
    ${If} $MadeVst3 >= 3
        RMDir "$Vst3\..\.."
    ${EndIf}
    ${If} $Mode == AllUsers
        DeleteRegKey HKLM "${KEY}"
    ${Else}
        DeleteRegKey HKCU "${KEY}"
    ${EndIf}
FunctionEnd
!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

Function .onInit
    SetRegView 64
    ${IfNot} ${AtLeastWin10}
        !insertmacro FailWith ${REFUSED} "${NAME} needs Windows 10 or later."
    ${EndIf}

    UserInfo::GetAccountType
    Pop $Account

    ; Where it is installed already, it is by default installed again.
    ReadRegStr $1 HKLM "${KEY}" "InstallLocation"
    ReadRegStr $2 HKCU "${KEY}" "InstallLocation"
    ${If} $1 != ""
        StrCpy $Mode AllUsers
    ${ElseIf} $2 != ""
    ${OrIf} $Account != Admin
        StrCpy $Mode CurrentUser
    ${Else}
        StrCpy $Mode AllUsers
    ${EndIf}

    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/CurrentUser" $R1
    ${IfNot} ${Errors}
        StrCpy $Mode CurrentUser
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/AllUsers" $R1
    ${IfNot} ${Errors}
        StrCpy $Mode AllUsers
    ${EndIf}

    ${If} ${Silent}
        Call RequirePossibleMode
    ${EndIf}
FunctionEnd

Function RequirePossibleMode
    ReadRegStr $1 HKLM "${KEY}" "InstallLocation"
    ${If} $Mode == CurrentUser
    ${AndIf} $1 != ""
        !insertmacro FailWith ${REFUSED} "${NAME} is installed for all users of this computer. Hosts would find it twice: uninstall it first, or install for all users again."
    ${EndIf}
    ${If} $Mode == AllUsers
    ${AndIf} $Account != Admin
        !insertmacro FailWith ${REFUSED} "Only an administrator can install for all users."
    ${EndIf}
FunctionEnd

; The process that was started again with more rights goes on where the first one stood.
Function SkipWhenElevated
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/Elevated" $R1
    ${IfNot} ${Errors}
        Abort
    ${EndIf}
FunctionEnd

Var ForAll

Function ShowModePage
    Call SkipWhenElevated
    !insertmacro MUI_HEADER_TEXT "Who is it for?" "Hosts look into both of these folders."
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateRadioButton} 0 12u 100% 12u "&All users of this computer (asks for an administrator's consent)"
    Pop $ForAll
    ${NSD_CreateLabel} 12u 25u 95% 10u "$COMMONFILES64\VST3"
    Pop $0
    ${NSD_CreateRadioButton} 0 48u 100% 12u "&Only for me"
    Pop $1
    ${NSD_CreateLabel} 12u 61u 95% 10u "$LOCALAPPDATA\Programs\Common\VST3"
    Pop $0
    ${If} $Mode == AllUsers
        ${NSD_Check} $ForAll
    ${Else}
        ${NSD_Check} $1
    ${EndIf}
    nsDialogs::Show
FunctionEnd

Function LeaveModePage
    ${NSD_GetState} $ForAll $0
    ${If} $0 <> ${BST_CHECKED}
        StrCpy $Mode CurrentUser
        ReadRegStr $1 HKLM "${KEY}" "InstallLocation"
        ${If} $1 != ""
            MessageBox MB_OK|MB_ICONINFORMATION "${NAME} is installed for all users of this computer. Hosts would find it twice: uninstall it first, or install for all users again."
            Abort
        ${EndIf}
    ${Else}
        StrCpy $Mode AllUsers
        ${If} $Account != Admin
            ClearErrors
            ExecShell "runas" "$EXEPATH" "/AllUsers /Elevated"
            ${IfNot} ${Errors}
                Quit
            ${EndIf}
            Abort ; no consent
        ${EndIf}
    ${EndIf}
FunctionEnd

; What this user has installed for himself makes way for what all users get.
Function RemoveOwnOfUser
    ReadRegStr $1 HKCU "${KEY}" "InstallLocation"
    ${If} $Mode == AllUsers
    ${AndIf} $1 != ""
        StrCpy $Mode CurrentUser
        Call SetFolders
        Call RequireUnused
        Call RemoveAll
        StrCpy $Mode AllUsers
        Call SetFolders
    ${EndIf}
FunctionEnd

; What could not be installed whole is taken away again; over an older version, the next attempt has to know that one's list.
Function TakeBack
    ${If} ${FileExists} "$PLUGINSDIR\old.txt"
        CopyFiles /SILENT "$PLUGINSDIR\old.txt" "$INSTDIR\installed.txt"
    ${Else}
        Call RemoveAll
    ${EndIf}
FunctionEnd

Function .onInstFailed
    SetOutPath "$TEMP"
    Call TakeBack
FunctionEnd

Section
    Call RequirePossibleMode
    Call SetFolders
    Call RequireUnused
    Call RemoveOwnOfUser

    InitPluginsDir
    CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\old.txt"
    !insertmacro ReadValue $MadeVst3 "MadeFolders"
    ${IfNot} ${FileExists} "$Vst3\..\..\*.*"
        StrCpy $MadeVst3 3
    ${ElseIfNot} ${FileExists} "$Vst3\..\*.*"
        StrCpy $MadeVst3 2
    ${ElseIfNot} ${FileExists} "$Vst3\*.*"
        StrCpy $MadeVst3 1
    ${EndIf}

    !insertmacro WriteValue Str "MadeFolders" '"$MadeVst3"'

    ClearErrors
    SetOutPath "$INSTDIR"
    File "/oname=installed.txt" "${LIST}"
    !include "${FILES}"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    ${If} ${Errors}
        SetOutPath "$TEMP"
        Call TakeBack
        !insertmacro FailWith ${ABORTED} "Not all files could be written."
    ${EndIf}

    ; What an older version had and this one has not.
    StrCpy $R0 "$PLUGINSDIR\old.txt"
    StrCpy $R1 "$INSTDIR\installed.txt"
    Call RemoveListed

    !insertmacro WriteValue Str "DisplayName" '"${NAME}"'
    !insertmacro WriteValue Str "DisplayVersion" '"${VERSION}"'
    !insertmacro WriteValue Str "DisplayIcon" '"$INSTDIR\Uninstall.exe"'
    !insertmacro WriteValue Str "Publisher" '"${MAKER}"'
    !insertmacro WriteValue Str "URLInfoAbout" '"${WEBSITE}"'
    !insertmacro WriteValue Str "InstallLocation" '"$INSTDIR"'
    !insertmacro WriteValue Str "UninstallString" `'"$INSTDIR\Uninstall.exe"'`
    !insertmacro WriteValue Str "QuietUninstallString" `'"$INSTDIR\Uninstall.exe" /S'`
    !insertmacro WriteValue DWORD "EstimatedSize" ${KILOBYTES}
    !insertmacro WriteValue DWORD "NoModify" 1
    !insertmacro WriteValue DWORD "NoRepair" 1
SectionEnd

Function un.onInit
    SetRegView 64
    ReadRegStr $1 HKCU "${KEY}" "InstallLocation"
    ${If} $1 == $INSTDIR
        StrCpy $Mode CurrentUser
    ${Else}
        StrCpy $Mode AllUsers
    ${EndIf}
    Call un.SetFolders

    UserInfo::GetAccountType
    Pop $Account
    ${If} $Mode == AllUsers
    ${AndIf} $Account != Admin
        ${IfNot} ${Silent}
            ClearErrors
            ExecShell "runas" "$INSTDIR\Uninstall.exe"
            ${IfNot} ${Errors}
                Quit
            ${EndIf}
        ${EndIf}
        !insertmacro FailWith ${REFUSED} "Only an administrator can remove what is installed for all users."
    ${EndIf}
FunctionEnd

Section Uninstall
    Call un.RequireUnused
    SetOutPath "$TEMP" ; a folder that is some program's current one cannot be removed
    Call un.RemoveAll
SectionEnd
