; What the installer says, Spanish and English.

!macro Texto NOMBRE ES EN
  LangString ${NOMBRE} ${LANG_SPANISHINTERNATIONAL} "${ES}"
  LangString ${NOMBRE} ${LANG_ENGLISH} "${EN}"
!macroend

!insertmacro Texto T_PROGRAMA "Sorvanel y su manual" "Sorvanel and its manual"
!insertmacro Texto T_PROGRAMA_DE "El programa, el manual (en español) y los accesos en el menú Inicio." \
  "The program, its manual (in Spanish) and the entries in the Start menu."
!insertmacro Texto T_INICIO "Arrancar al iniciar sesión" "Start at logon"
!insertmacro Texto T_INICIO_DE "Sorvanel se abre solo cuando cualquier usuario inicia sesión en este equipo." \
  "Sorvanel opens by itself when any user of this computer logs on."
!insertmacro Texto T_CORTAFUEGOS "Abrir el cortafuegos" "Open the firewall"
!insertmacro Texto T_CORTAFUEGOS_DE \
  "Deja llegar a Sorvanel los pesos que se envían por UDP desde la red local. Desde otras redes, nada." \
  "Lets weights reach Sorvanel by UDP from the local network, and nothing from other networks."
!insertmacro Texto T_SIMULADOR "Simulador" "Simulator"
!insertmacro Texto T_SIMULADOR_DE "Envía pesos de prueba sin tener un indicador delante (ventana de comandos)." \
  "Sends weights to try things out without an indicator (command prompt)."
!insertmacro Texto T_CONFIGURACION "Borrar la configuración" "Delete the settings"
!insertmacro Texto T_CONFIGURACION_DE \
  "Visores, retícula, mensaje, copias y registro. Sin marcar, se conservan para otra instalación." \
  "Displays, grid, message, backup copies and log. Unless ticked they stay for a later installation."

!insertmacro Texto T_MANUAL "Manual de Sorvanel" "Sorvanel manual"
!insertmacro Texto T_ABRIR "Abrir Sorvanel" "Open Sorvanel"
!insertmacro Texto T_CERRANDO "Cerrando Sorvanel…" "Closing Sorvanel…"
!insertmacro Texto T_ABIERTO \
  "«$R0» sigue en uso y no se puede reemplazar ni borrar.$\r$\n$\r$\nCiérrelo (quizá está abierto en la sesión de otro usuario) y pulse Reintentar." \
  "“$R0” is still in use and can be neither replaced nor deleted.$\r$\n$\r$\nClose it (it may be open in another user's session) and press Retry."
!insertmacro Texto T_NO_ESCRITO "No se puede escribir «$R0»." "“$R0” cannot be written."
!insertmacro Texto T_ANTIGUO "Sorvanel necesita Windows 7 o posterior." "Sorvanel needs Windows 7 or later."
!insertmacro Texto T_AVISO_CARPETA \
  "No se ha podido dar a los usuarios permiso de escritura en $APPDATA\Sorvanel: quizá no puedan guardar la configuración." \
  "Users could not be given the right to write to $APPDATA\Sorvanel: they may not be able to save the settings."
!insertmacro Texto T_AVISO_CORTAFUEGOS \
  "No se ha podido añadir la regla del cortafuegos: quizá no lleguen pesos por UDP." \
  "The firewall rule could not be added: weights may not arrive by UDP."
