; The installer of Scrivanta for one user: no administrator, nothing outside the user's own folders and registry.
; scripts/package.sh gives VERSION, PROGRAM_FOLDER (what the build made), SAMPLES_FOLDER and OUTPUT.
;
;   /S                 asks nothing, neither when installing nor when uninstalling
;   /D=FOLDER          where to install to (the last argument, without quotes)
;   /REMOVESETTINGS    uninstaller: takes the settings away without asking
;
; Exit status: 0 done, 1 cancelled, 2 the program is running or a file could not be written.

Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh

!define NAME "Scrivanta"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define SETTINGS_KEY "Software\${NAME}"
!define CLASSES "Software\Classes"

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
; An upgrade goes where the older version is.
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=2052 "ProductName" "${NAME}"
VIAddVersionKey /LANG=2052 "FileDescription" "${NAME}安装程序"
VIAddVersionKey /LANG=2052 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\${NAME}.exe"
!define MUI_FINISHPAGE_RUN_TEXT "启动${NAME}"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\${NAME}.rtf"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "打开使用说明"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"

; A program file that is open for running cannot be opened for writing.
!macro StopWhileRunning UN
Function ${UN}StopWhileRunning
  ${IfNot} ${FileExists} "$INSTDIR\${NAME}.exe"
    Return
  ${EndIf}
  try_again:
  ClearErrors
  FileOpen $0 "$INSTDIR\${NAME}.exe" a
  ${If} ${Errors}
    SetErrorLevel 2
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME}正在运行。请存盘并关闭它的所有窗口，然后按【重试】。" /SD IDCANCEL IDRETRY try_again
    Quit
  ${EndIf}
  FileClose $0
FunctionEnd
!macroend
!insertmacro StopWhileRunning ""
!insertmacro StopWhileRunning "un."

; RegisterType TYPE DESCRIPTION: the program stands in the "open with" list of files of this type. The program that opens
; them by default is not changed.
!macro RegisterType TYPE DESCRIPTION
  WriteRegStr HKCU "${CLASSES}\${NAME}.${TYPE}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\${NAME}.${TYPE}\DefaultIcon" "" "$INSTDIR\${NAME}.exe,0"
  WriteRegStr HKCU "${CLASSES}\${NAME}.${TYPE}\shell\open\command" "" '"$INSTDIR\${NAME}.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\.${TYPE}\OpenWithProgids" "${NAME}.${TYPE}" ""
  WriteRegStr HKCU "${CLASSES}\Applications\${NAME}.exe" "FriendlyAppName" "${NAME}"
  WriteRegStr HKCU "${CLASSES}\Applications\${NAME}.exe\shell\open\command" "" '"$INSTDIR\${NAME}.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\Applications\${NAME}.exe\SupportedTypes" ".${TYPE}" ""
!macroend

; Keys that others may use too go only when nothing is left in them.
!macro UnregisterType TYPE
  DeleteRegKey HKCU "${CLASSES}\${NAME}.${TYPE}"
  DeleteRegValue HKCU "${CLASSES}\.${TYPE}\OpenWithProgids" "${NAME}.${TYPE}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${TYPE}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${TYPE}"
  DeleteRegValue HKCU "${CLASSES}\Applications\${NAME}.exe\SupportedTypes" ".${TYPE}"
!macroend

; SHChangeNotify(SHCNE_ASSOCCHANGED): the desktop looks at the types again.
!macro AnnounceTypes
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section "!${NAME}程序和使用说明" SectionProgram
  SectionIn RO
  Call StopWhileRunning
  SetOutPath "$INSTDIR"
  SetOverwrite try
  ClearErrors
  File "${PROGRAM_FOLDER}/Scrivanta.exe"
  File "${PROGRAM_FOLDER}/scrivanta-batch.exe"
  File "${PROGRAM_FOLDER}/ScrivantaJet32.exe"
  File "${PROGRAM_FOLDER}/Scrivanta.rtf"
  File "${PROGRAM_FOLDER}/licences.txt"
  ${If} ${Errors}
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "不能写入文件夹$INSTDIR，安装没有完成。" /SD IDOK
    Quit
  ${EndIf}
  ; A sample that is there already may have been worked on.
  SetOverwrite off
  SetOutPath "$INSTDIR\samples"
  File "${SAMPLES_FOLDER}/*.txt"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${NAME}.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "开始菜单里的快捷方式" SectionStartMenu
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${NAME}.exe"
SectionEnd

Section ".txt文件的“打开方式”里列出${NAME}" SectionTxt
  !insertmacro RegisterType "txt" "文本文档"
SectionEnd

Section ".rtf文件的“打开方式”里列出${NAME}" SectionRtf
  !insertmacro RegisterType "rtf" "RTF文档"
SectionEnd

; What the user has not ticked is not there, even if an older version had put it there; the choice is kept for the next
; upgrade.
!macro ApplyChoice SECTION VALUE
  ${If} ${SectionIsSelected} ${SECTION}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "${VALUE}" 1
  ${Else}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "${VALUE}" 0
!macroend

Section "-Choices"
  !insertmacro ApplyChoice ${SectionStartMenu} "ChoiceStartMenu"
    Delete "$SMPROGRAMS\${NAME}.lnk"
  ${EndIf}
  !insertmacro ApplyChoice ${SectionTxt} "ChoiceTxt"
    !insertmacro UnregisterType "txt"
  ${EndIf}
  !insertmacro ApplyChoice ${SectionRtf} "ChoiceRtf"
    !insertmacro UnregisterType "rtf"
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${SectionTxt}
  ${AndIfNot} ${SectionIsSelected} ${SectionRtf}
    DeleteRegKey HKCU "${CLASSES}\Applications\${NAME}.exe"
  ${EndIf}
  !insertmacro AnnounceTypes
SectionEnd

!macro RecallChoice SECTION VALUE
  ClearErrors
  ReadRegDWORD $0 HKCU "${UNINSTALL_KEY}" "${VALUE}"
  ${IfNot} ${Errors}
  ${AndIf} $0 = 0
    !insertmacro UnselectSection ${SECTION}
  ${EndIf}
!macroend

Function .onInit
  !insertmacro RecallChoice ${SectionStartMenu} "ChoiceStartMenu"
  !insertmacro RecallChoice ${SectionTxt} "ChoiceTxt"
  !insertmacro RecallChoice ${SectionRtf} "ChoiceRtf"
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "程序、控制台程序、使用说明和两份样例文档。"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionStartMenu} "在开始菜单里放一个快捷方式。"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionTxt} "右击.txt文件，“打开方式”里就有${NAME}。默认用什么程序打开，不会改变。"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionRtf} "右击.rtf文件，“打开方式”里就有${NAME}。默认用什么程序打开，不会改变。"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Deletes $1 when it is byte for byte the file $2: a sample that somebody has worked on is a document.
Function un.DeleteUnchanged
  ClearErrors
  FileOpen $3 "$1" r
  FileOpen $4 "$2" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ; A number, or nothing at the end of the file.
    FileReadByte $3 $5
    FileReadByte $4 $6
    ${If} "$5" != "$6"
    ${OrIf} "$5" == ""
      ${Break}
    ${EndIf}
  ${Loop}
  FileClose $3
  FileClose $4
  ${If} "$5" == "$6"
    Delete "$1"
  ${EndIf}
FunctionEnd

!macro DeleteUnchanged SAMPLE
  SetOutPath "$PLUGINSDIR"
  File "${SAMPLES_FOLDER}/${SAMPLE}"
  StrCpy $1 "$INSTDIR\samples\${SAMPLE}"
  StrCpy $2 "$PLUGINSDIR\${SAMPLE}"
  Call un.DeleteUnchanged
!macroend

Var removeSettings

Function un.onInit
  InitPluginsDir
  StrCpy $removeSettings 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/REMOVESETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $removeSettings 1
  ${EndIf}
FunctionEnd

Section "Uninstall"
  Call un.StopWhileRunning
  ${If} $removeSettings = 0
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "是否同时删除${NAME}的设置（窗口位置、选项、查找过的内容）？$\n你的文档不会删除。" /SD IDNO IDNO keep_settings
    StrCpy $removeSettings 1
  ${EndIf}
  keep_settings:

  Delete "$INSTDIR\Scrivanta.exe"
  Delete "$INSTDIR\scrivanta-batch.exe"
  Delete "$INSTDIR\ScrivantaJet32.exe"
  Delete "$INSTDIR\Scrivanta.rtf"
  Delete "$INSTDIR\licences.txt"
  !insertmacro DeleteUnchanged "notes.txt"
  !insertmacro DeleteUnchanged "table.txt"
  RMDir "$INSTDIR\samples"
  Delete "$INSTDIR\Uninstall.exe"
  Delete "$SMPROGRAMS\${NAME}.lnk"

  ${If} $removeSettings = 1
    Delete "$INSTDIR\${NAME}.ini"
    Delete "$APPDATA\${NAME}\${NAME}.ini"
    RMDir "$APPDATA\${NAME}"
    DeleteRegKey HKCU "${SETTINGS_KEY}"
  ${EndIf}
  ; Only when they are empty: a document that somebody has put there stays, and so does one that a crash has left behind.
  RMDir "$INSTDIR"
  RMDir "$LOCALAPPDATA\${NAME}"

  !insertmacro UnregisterType "txt"
  !insertmacro UnregisterType "rtf"
  DeleteRegKey HKCU "${CLASSES}\Applications\${NAME}.exe"
  DeleteRegKey /ifempty HKCU "${CLASSES}\Applications"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  !insertmacro AnnounceTypes
SectionEnd
