; What installer and uninstaller share: where things are, whether a host holds the module, and what removes an installation.

Var Mode ; AllUsers or CurrentUser
Var Vst3 ; the folder that hosts look into
Var MadeVst3 ; how many folders are there because of us: it, the one above it, and the one above that

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
