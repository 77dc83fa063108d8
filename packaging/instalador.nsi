; The installer, for all users of a computer. packaging/hacer-instalador.sh builds it, and says what it defines:
; VERSION (1.0.1), ROTULO (1.00A), ENTREGA (the folder of what is installed), SALIDA (the installer).
;
; Installer:    /S silent, /D=FOLDER (last, without quotes), /INICIO=0|1, /CORTAFUEGOS=0|1, /SIMULADOR=0|1,
;               /ARRANCAR=0|1 (silent: open again a copy that was closed; 1), /ESPERA=SECONDS (for a running copy to
;               close; 20), /IDIOMA=es|en. An option that is not given is as it was at the last installation; at the
;               first it is 1.
; Uninstaller:  /S, /BORRAR=0|1 (the settings too; 0), /ESPERA, /IDIOMA; its code is seen with _?=FOLDER (last) only,
;               since without it a copy of it goes on.
; Exit codes:   0 done; 1 cancelled; 3 Windows is too old; 4 a program is in use and did not close: nothing was changed;
;               5 a file cannot be written; 6 installed, but the folder's rights or the firewall rule are missing.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel admin
SetCompressor /SOLID lzma
SetDateSave off ; the age of no file gets in: the same tree gives the same bytes

!include LogicLib.nsh
!include FileFunc.nsh
!include Sections.nsh
!include WinVer.nsh
!include MUI2.nsh

!define CLAVE "Software\Sorvanel"
!define CLAVE_DESINSTALAR "Software\Microsoft\Windows\CurrentVersion\Uninstall\Sorvanel"
!define CLAVE_INICIO "Software\Microsoft\Windows\CurrentVersion\Run"
!define EXE "Sorvanel.exe"
!define ENDSESSION_CLOSEAPP 1
!define ES_ENLACE 0x400 ; FILE_ATTRIBUTE_REPARSE_POINT
!define SIN_ATRIBUTOS -1

Name "Sorvanel"
OutFile "${SALIDA}"
InstallDir "$PROGRAMFILES64\Sorvanel"
InstallDirRegKey HKLM "${CLAVE_DESINSTALAR}" "InstallLocation"
BrandingText "Sorvanel ${ROTULO}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "Sorvanel"
VIAddVersionKey /LANG=0 "CompanyName" "Sorvanel"
VIAddVersionKey /LANG=0 "LegalCopyright" "© Autores de Sorvanel"
VIAddVersionKey /LANG=0 "FileDescription" "Instalador de Sorvanel"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}.0"

!define MUI_ICON "icono/sorvanel.ico"
!define MUI_UNICON "icono/sorvanel.ico"
!define MUI_ABORTWARNING
!define MUI_WELCOMEFINISHPAGE_BITMAP "icono/instalador.bmp"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "$(T_ABRIR)"
!define MUI_FINISHPAGE_RUN_FUNCTION Abrir
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
; The first is for whoever has neither: the program itself speaks Spanish.
!insertmacro MUI_LANGUAGE "SpanishInternational"
!insertmacro MUI_LANGUAGE "English"
!include textos.nsh

Var Espera       ; s
Var Arrancar
Var CopiaCerrada ; 1: a copy that ran was asked to end, and did
Var Avisos       ; what is installed but not in order; empty

; ---- for the installer and the uninstaller alike ----

; A switch of the command line, /NAME=value, into a variable, which stays as it is without it.
!macro Opcion NOMBRE VARIABLE
  ${GetParameters} $R8
  ClearErrors
  ${GetOptions} $R8 "/${NOMBRE}=" $R9
  ${IfNot} ${Errors}
    StrCpy ${VARIABLE} $R9
  ${EndIf}
!macroend

!macro Comienzo
  SetRegView 64
  SetShellVarContext all
  StrCpy $R7 ""
  !insertmacro Opcion "IDIOMA" $R7
  ${If} $R7 == "en"
    StrCpy $LANGUAGE ${LANG_ENGLISH}
  ${ElseIf} $R7 == "es"
    StrCpy $LANGUAGE ${LANG_SPANISHINTERNATIONAL}
  ${EndIf}
  StrCpy $Espera 20
  !insertmacro Opcion "ESPERA" $Espera
  StrCpy $CopiaCerrada 0
!macroend

; Tells the text of that name (what it names is $R0), and ends.
!macro Terminar TEXTO CODIGO
  MessageBox MB_OK|MB_ICONSTOP "$(${TEXTO})" /SD IDOK
  SetErrorLevel ${CODIGO}
  Quit
!macroend

!macro FuncionesComunes UN

; Asks the copies that were started from $INSTDIR to end, as the system does for an installer: they write what is
; pending, whatever they are doing. Those under another name or in another folder go on.
Function ${UN}PedirFin
  StrCpy $0 0
  ${Do}
    FindWindow $0 "SorvanelFormulario" "" 0 $0
    ${If} $0 = 0
      ${ExitDo}
    ${EndIf}
    StrCpy $3 ""
    System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
    System::Call 'kernel32::OpenProcess(i 0x1000, i 0, i r1) p .r2' ; PROCESS_QUERY_LIMITED_INFORMATION
    System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN})'
    System::Call 'kernel32::CloseHandle(p r2)'
    ${If} $3 == "$INSTDIR\${EXE}"
      StrCpy $CopiaCerrada 1
      SendMessage $0 ${WM_QUERYENDSESSION} 0 ${ENDSESSION_CLOSEAPP} $1 /TIMEOUT=5000
      ${If} $1 = 1
        SendMessage $0 ${WM_ENDSESSION} 1 ${ENDSESSION_CLOSEAPP} $1 /TIMEOUT=5000
      ${EndIf}
    ${EndIf}
  ${Loop}
FunctionEnd

; Waits until $R0, if it is there, can be written: a program that runs cannot. After $Espera seconds it asks the user,
; or, silent, ends with code 4. Nobody is killed: it may be writing.
Function ${UN}EsperarLibre
  ${Do}
    StrCpy $4 0
    ${Do}
      ${IfNot} ${FileExists} $R0
        Return
      ${EndIf}
      ClearErrors
      FileOpen $5 $R0 a
      ${IfNot} ${Errors}
        FileClose $5
        Return
      ${EndIf}
      ${If} $4 = 0
        DetailPrint "$(T_CERRANDO)"
        Call ${UN}PedirFin
      ${EndIf}
      Sleep 200
      IntOp $4 $4 + 1
      IntOp $5 $Espera * 5
    ${LoopUntil} $4 >= $5
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(T_ABIERTO)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel 4
      Quit
    ${EndIf}
  ${Loop}
FunctionEnd

; Nothing is changed before all of it can be.
Function ${UN}CerrarTodo
  StrCpy $R0 "$INSTDIR\${EXE}"
  Call ${UN}EsperarLibre
  StrCpy $R0 "$INSTDIR\simulador.exe"
  Call ${UN}EsperarLibre
FunctionEnd

; All rules for this program: ours, and what somebody answered when Windows asked, since a block wins over a permission.
Function ${UN}QuitarRegla
  nsExec::ExecToLog '"$SYSDIR\netsh.exe" advfirewall firewall delete rule name=all dir=in program="$INSTDIR\${EXE}"'
  Pop $0 ; it also fails where there is none
FunctionEnd

!macroend
!insertmacro FuncionesComunes ""
!insertmacro FuncionesComunes "un."

; ---- installing ----

; One installation a computer: one in another folder is taken away first, its settings kept.
Function QuitarAnterior
  ReadRegStr $6 HKLM "${CLAVE_DESINSTALAR}" "InstallLocation"
  ${If} $6 == ""
  ${OrIf} $6 == $INSTDIR
  ${OrIfNot} ${FileExists} "$6\Desinstalar.exe"
    Return
  ${EndIf}
  ExecWait '"$6\Desinstalar.exe" /S /ESPERA=$Espera _?=$6' $0
  ${If} $0 != 0
    StrCpy $R0 "$6\${EXE}"
    !insertmacro Terminar T_NO_ESCRITO 4
  ${EndIf}
  Delete "$6\Desinstalar.exe"
  RMDir $6
FunctionEnd

; Written beside and renamed over, so that a power cut leaves the old program or the new one.
!macro Poner NOMBRE
  StrCpy $R0 "$INSTDIR\${NOMBRE}"
  File "/oname=${NOMBRE}.nuevo" "${ENTREGA}/${NOMBRE}"
  System::Call 'kernel32::MoveFileExW(w "$R0.nuevo", w R0, i 9) i .r0' ; replacing, written through
  ${If} $0 = 0
    Delete "$R0.nuevo"
    !insertmacro Terminar T_NO_ESCRITO 5
  ${EndIf}
!macroend

Section "$(T_PROGRAMA)" SecPrograma
  SectionIn RO
  Call CerrarTodo
  Call QuitarAnterior
  SetOutPath $INSTDIR
  SetOverwrite on
  !insertmacro Poner "${EXE}"
  !insertmacro Poner "manual.html"
  !insertmacro Poner "LEEME.txt"
  WriteUninstaller "$INSTDIR\Desinstalar.exe"
  Call PrepararCarpeta

  CreateDirectory "$SMPROGRAMS\Sorvanel"
  Delete "$SMPROGRAMS\Sorvanel\*.lnk"
  CreateShortcut "$SMPROGRAMS\Sorvanel\Sorvanel.lnk" "$INSTDIR\${EXE}"
  CreateShortcut "$SMPROGRAMS\Sorvanel\$(T_MANUAL).lnk" "$INSTDIR\manual.html"

  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "DisplayName" "Sorvanel"
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "Publisher" "Sorvanel"
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "DisplayIcon" "$INSTDIR\${EXE}"
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "UninstallString" '"$INSTDIR\Desinstalar.exe"'
  WriteRegStr HKLM "${CLAVE_DESINSTALAR}" "QuietUninstallString" '"$INSTDIR\Desinstalar.exe" /S'
  WriteRegDWORD HKLM "${CLAVE_DESINSTALAR}" "NoModify" 1
  WriteRegDWORD HKLM "${CLAVE_DESINSTALAR}" "NoRepair" 1
SectionEnd

Section "$(T_INICIO)" SecInicio
  ; In "Run" rather than the Startup folder: it is one value and no file that others tidy away, it starts earlier, and
  ; who switched it off for himself in the Task Manager is not overruled by an upgrade.
  WriteRegStr HKLM "${CLAVE_INICIO}" "Sorvanel" '"$INSTDIR\${EXE}"'
SectionEnd

Section "$(T_CORTAFUEGOS)" SecCortafuegos
  Call QuitarRegla
  nsExec::ExecToLog '"$SYSDIR\netsh.exe" advfirewall firewall add rule name="Sorvanel" dir=in action=allow \
    program="$INSTDIR\${EXE}" protocol=udp remoteip=localsubnet profile=any enable=yes'
  Pop $0
  ${If} $0 != 0
    StrCpy $Avisos "$Avisos$(T_AVISO_CORTAFUEGOS)$\r$\n"
  ${EndIf}
SectionEnd

Section "$(T_SIMULADOR)" SecSimulador
  !insertmacro Poner "simulador.exe"
SectionEnd

!macro Recordar SECCION NOMBRE
  SectionGetFlags ${SECCION} $0
  IntOp $0 $0 & ${SF_SELECTED}
  WriteRegDWORD HKLM "${CLAVE}" "${NOMBRE}" $0
!macroend

; Last: what was chosen is remembered for an upgrade, and what an earlier installation had and this one has not goes.
Section -cierre
  ${IfNot} ${SectionIsSelected} ${SecInicio}
    DeleteRegValue HKLM "${CLAVE_INICIO}" "Sorvanel"
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${SecSimulador}
    Delete "$INSTDIR\simulador.exe"
  ${EndIf}
  ReadRegDWORD $0 HKLM "${CLAVE}" "Cortafuegos"
  ${If} $0 = 1
  ${AndIfNot} ${SectionIsSelected} ${SecCortafuegos}
    Call QuitarRegla
  ${EndIf}
  !insertmacro Recordar ${SecInicio} "Inicio"
  !insertmacro Recordar ${SecCortafuegos} "Cortafuegos"
  !insertmacro Recordar ${SecSimulador} "Simulador"
  ${GetSize} "$INSTDIR" "/S=0K /G=0" $0 $1 $2
  WriteRegDWORD HKLM "${CLAVE_DESINSTALAR}" "EstimatedSize" $0

  ${If} $Avisos != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "$Avisos" /SD IDOK
    SetErrorLevel 6
  ${EndIf}
  ${If} ${Silent}
  ${AndIf} $CopiaCerrada = 1
  ${AndIf} $Arrancar = 1
    Call Abrir
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecPrograma} "$(T_PROGRAMA_DE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecInicio} "$(T_INICIO_DE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecCortafuegos} "$(T_CORTAFUEGOS_DE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecSimulador} "$(T_SIMULADOR_DE)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; An option: of the command line, else of the last installation, else yes.
!macro Elegir SECCION NOMBRE CONMUTADOR
  ClearErrors
  ReadRegDWORD $R6 HKLM "${CLAVE}" "${NOMBRE}"
  ${If} ${Errors}
    StrCpy $R6 1
  ${EndIf}
  !insertmacro Opcion "${CONMUTADOR}" $R6
  ${If} $R6 = 0
    !insertmacro UnselectSection ${SECCION}
  ${EndIf}
!macroend

Function .onInit
  !insertmacro Comienzo
  StrCpy $Avisos ""
  StrCpy $Arrancar 1
  !insertmacro Opcion "ARRANCAR" $Arrancar
  ${IfNot} ${AtLeastWin7}
    !insertmacro Terminar T_ANTIGUO 3
  ${EndIf}
  !insertmacro Elegir ${SecInicio} "Inicio" "INICIO"
  !insertmacro Elegir ${SecCortafuegos} "Cortafuegos" "CORTAFUEGOS"
  !insertmacro Elegir ${SecSimulador} "Simulador" "SIMULADOR"
FunctionEnd

; The settings' folder, which every user may write to: in this place only who made a file may change it, and a file that
; is replaced takes its rights from the folder. By number, since the group's name is translated.
Function PrepararCarpeta
  CreateDirectory "$APPDATA\Sorvanel"
  System::Call 'kernel32::GetFileAttributesW(w "$APPDATA\Sorvanel") i .r0'
  IntOp $1 $0 & ${ES_ENLACE}
  ${If} $0 = ${SIN_ATRIBUTOS}
  ${OrIf} $1 <> 0 ; it leads elsewhere: somebody without our rights may have laid it, to be given that place
    StrCpy $0 1
  ${Else}
    nsExec::ExecToLog '"$SYSDIR\icacls.exe" "$APPDATA\Sorvanel" /grant *S-1-5-32-545:(OI)(CI)M /L /Q'
    Pop $0
  ${EndIf}
  ${If} $0 != 0
    StrCpy $Avisos "$Avisos$(T_AVISO_CARPETA)$\r$\n"
  ${EndIf}
FunctionEnd

; By way of the desktop: it runs with the user's rights, not with ours.
Function Abrir
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\${EXE}"'
FunctionEnd

; ---- uninstalling ----

Section "un.$(T_PROGRAMA)" SecQuitar
  SectionIn RO
  Call un.CerrarTodo
  Call un.QuitarRegla
  DeleteRegValue HKLM "${CLAVE_INICIO}" "Sorvanel"
  Delete "$SMPROGRAMS\Sorvanel\*.lnk"
  RMDir "$SMPROGRAMS\Sorvanel"
  ; What else is in the folder (a copy under another name) is the user's.
  Delete "$INSTDIR\${EXE}"
  Delete "$INSTDIR\simulador.exe"
  Delete "$INSTDIR\manual.html"
  Delete "$INSTDIR\LEEME.txt"
  Delete "$INSTDIR\Desinstalar.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${CLAVE}"
  DeleteRegKey HKLM "${CLAVE_DESINSTALAR}"
SectionEnd

Section /o "un.$(T_CONFIGURACION)" SecBorrar
  Delete "$APPDATA\Sorvanel\Sorvanel.*"
  Delete "$APPDATA\Sorvanel\Sorvanel_*.*"
  RMDir "$APPDATA\Sorvanel"
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecQuitar} "$(T_PROGRAMA_DE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecBorrar} "$(T_CONFIGURACION_DE)"
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END

Function un.onInit
  !insertmacro Comienzo
  StrCpy $R6 0
  !insertmacro Opcion "BORRAR" $R6
  ${If} $R6 = 1
    !insertmacro SelectSection ${SecBorrar}
  ${EndIf}
FunctionEnd
