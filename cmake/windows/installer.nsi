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
!define TWICE "Kestrel EQ is installed for all users of this computer. Hosts would find it twice: uninstall it first, or install for all users again."
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

!include cmake/windows/installer-shared.nsh
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

    Call ReadOptions

    ${If} ${Silent}
        Call RequirePossibleMode
    ${EndIf}
FunctionEnd

!macro RefuseOptions text
    !insertmacro FailWith ${REFUSED} "${text}$\r$\n$\r$\nThe options are /S (no window) and /AllUsers or /CurrentUser."
!macroend

; Sets $Mode by the command line, and refuses what it does not know: a slip must not install for somebody else.
Function ReadOptions
    ${GetParameters} $R0
    StrCpy $R0 "$R0 "
    StrCpy $R2 "" ; the word so far
    StrCpy $R3 "" ; the mode that was asked for
    ${DoWhile} $R0 != ""
        StrCpy $R1 $R0 1
        StrCpy $R0 $R0 "" 1
        ${If} $R1 != " "
            StrCpy $R2 "$R2$R1"
        ${Else}
            ${If} $R2 == "/AllUsers"
            ${OrIf} $R2 == "/CurrentUser"
                StrCpy $R2 $R2 "" 1
                ${If} $R3 != ""
                ${AndIf} $R3 != $R2
                    !insertmacro RefuseOptions "/AllUsers and /CurrentUser exclude each other."
                ${EndIf}
                StrCpy $R3 $R2
            ${ElseIf} $R2 != ""
            ${AndIf} $R2 S!= "/S"
            ${AndIf} $R2 S!= "/NCRC"
            ${AndIf} $R2 != "/Elevated"
                !insertmacro RefuseOptions "There is no option $R2."
            ${EndIf}
            StrCpy $R2 ""
        ${EndIf}
    ${Loop}

    ${If} $R3 == AllUsers
        StrCpy $Mode AllUsers
    ${ElseIf} $R3 == CurrentUser
        StrCpy $Mode CurrentUser
    ${EndIf}
FunctionEnd

Function RequirePossibleMode
    ReadRegStr $1 HKLM "${KEY}" "InstallLocation"
    ${If} $Mode == CurrentUser
    ${AndIf} $1 != ""
        !insertmacro FailWith ${REFUSED} "${TWICE}"
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
            MessageBox MB_OK|MB_ICONINFORMATION "${TWICE}"
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
