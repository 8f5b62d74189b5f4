; The installer: for one user, without the rights of an administrator. makensis gets VERSION, STAGE (the folder with the
; files of the program), ICON and OUTPUT from scripts/package-windows.
Unicode true
Target amd64-unicode
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvex"
!define SOURCE "TarvexLibrary"
!define SOURCES "Software\ODBC\ODBC.INI"
!define DATA "$LOCALAPPDATA\tarvex"

Name "$(title)"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tarvex"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
BrandingText "Tarvex ${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_LANGDLL_ALLLANGUAGES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION startProgram
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"
!insertmacro MUI_LANGUAGE "English"

LangString title ${LANG_SIMPCHINESE} "Tarvex图书馆管理系统"
LangString title ${LANG_ENGLISH} "Tarvex Library System"
LangString running ${LANG_SIMPCHINESE} "程序正在运行。请先退出，再安装或卸载。"
LangString running ${LANG_ENGLISH} "The program is running. Please leave it first."
LangString refused ${LANG_SIMPCHINESE} "数据库没有备好。程序装好了，读文件、校对、修改都能用；套录库和书库要先在连接设置里接上数据库。"
LangString refused ${LANG_ENGLISH} "The database could not be prepared. The program is installed and can read, proof and edit files; the catalogue needs a database, which the connection dialog sets."
LangString kept ${LANG_SIMPCHINESE} "您的文件没有删除：$\r$\n${DATA}"
LangString kept ${LANG_ENGLISH} "Your files were kept:$\r$\n${DATA}"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "ProductName" "Tarvex图书馆管理系统"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "FileDescription" "Tarvex图书馆管理系统 安装程序"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "CompanyName" "Norvas"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SIMPCHINESE} "LegalCopyright" ""

; A running program cannot be replaced: Windows refuses to open its file for writing.
!macro refuseIfRunning un
Function ${un}refuseIfRunning
    ${If} ${FileExists} "$INSTDIR\tarvex.exe"
        ClearErrors
        FileOpen $0 "$INSTDIR\tarvex.exe" a
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(running)" /SD IDOK
            Abort
        ${EndIf}
        FileClose $0
    ${EndIf}
FunctionEnd
!macroend
!insertmacro refuseIfRunning ""
!insertmacro refuseIfRunning "un."

Function .onInit
    !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Function un.onInit
    !insertmacro MUI_UNGETLANGUAGE
FunctionEnd

Function startProgram
    SetOutPath "${DATA}\samples"
    Exec '"$INSTDIR\tarvex.exe"'
FunctionEnd

Section
    Call refuseIfRunning
    SetOutPath "$INSTDIR"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    ; The user's own files are made once and never overwritten; the configuration files come at the first start.
    CreateDirectory "${DATA}"
    ${IfNot} ${FileExists} "${DATA}\samples\*.*"
        CopyFiles /SILENT "$INSTDIR\samples" "${DATA}"
    ${EndIf}

    ; A data source of this user names the file of the driver, so that the driver need not be registered, which would
    ; require the rights of an administrator.
    WriteRegStr HKCU "${SOURCES}\ODBC Data Sources" "${SOURCE}" "SQLite3 ODBC Driver"
    WriteRegStr HKCU "${SOURCES}\${SOURCE}" "Driver" "$INSTDIR\sqlite3odbc.dll"
    ReadRegStr $0 HKCU "${SOURCES}\${SOURCE}" "Database"
    ${If} $0 == ""
        WriteRegStr HKCU "${SOURCES}\${SOURCE}" "Description" "The embedded library database"
        WriteRegStr HKCU "${SOURCES}\${SOURCE}" "Database" "${DATA}\library.db"
        WriteRegStr HKCU "${SOURCES}\${SOURCE}" "JournalMode" "WAL"
        WriteRegStr HKCU "${SOURCES}\${SOURCE}" "SyncPragma" "NORMAL"
        WriteRegStr HKCU "${SOURCES}\${SOURCE}" "Timeout" "2000"
    ${EndIf}
    nsExec::ExecToLog '"$INSTDIR\prepareDesk.exe" "${DATA}\library.db" "PROVIDER=MSDASQL;DSN=${SOURCE};UID=library;PWD=;" "DSN=${SOURCE}"'
    Pop $0
    ${If} $0 != 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(refused)" /SD IDOK
    ${EndIf}

    SetOutPath "${DATA}\samples" ; the folder in which the program starts
    CreateShortcut "$SMPROGRAMS\$(title).lnk" "$INSTDIR\tarvex.exe"
    SetOutPath "$INSTDIR"

    WriteRegStr HKCU "${KEY}" "DisplayName" "$(title)"
    WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\tarvex.exe"
    WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${KEY}" "Publisher" "Norvas"
    WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${KEY}" "Shortcut" "$SMPROGRAMS\$(title).lnk"
    WriteRegDWORD HKCU "${KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${KEY}" "EstimatedSize" $0
SectionEnd

; Removes what was installed, file by file: the folder may hold others if the user chose it.
Section "un."
    Call un.refuseIfRunning
    ReadRegStr $0 HKCU "${KEY}" "Shortcut"
    ${If} $0 != ""
        Delete "$0"
    ${EndIf}
    !include "${UNINSTALL}"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    DeleteRegValue HKCU "${SOURCES}\ODBC Data Sources" "${SOURCE}"
    DeleteRegKey HKCU "${SOURCES}\${SOURCE}"
    DeleteRegKey HKCU "${KEY}"
    MessageBox MB_OK|MB_ICONINFORMATION "$(kept)" /SD IDOK
SectionEnd
