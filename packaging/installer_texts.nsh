; Everything that the installer says besides the standard pages' own texts.
LangString TextNotForAllUsers ${LANG_SPANISH} "Su cuenta no puede instalar $(^Name) para todos los usuarios de este equipo."
LangString TextNotForAllUsers ${LANG_ENGLISH} "Your account cannot install $(^Name) for all users of this computer."

LangString TextInUse ${LANG_SPANISH} "Un programa está usando $(^Name). Ciérrelo e inténtelo de nuevo."
LangString TextInUse ${LANG_ENGLISH} "A program is using $(^Name). Close it and try again."

LangString TextNotRegistered ${LANG_SPANISH} "No se pudo registrar el componente."
LangString TextNotRegistered ${LANG_ENGLISH} "The component could not be registered."

LangString TextNotWritten ${LANG_SPANISH} "No se pudieron escribir todos los archivos."
LangString TextNotWritten ${LANG_ENGLISH} "Not all files could be written."

LangString TextNot32Bit ${LANG_SPANISH} "Este Windows no ejecuta programas de 32 bits: el componente de 32 bits no se registra."
LangString TextNot32Bit ${LANG_ENGLISH} "This Windows does not run 32-bit programs: the 32-bit component is not registered."

LangString TextNeedsAdministrator ${LANG_SPANISH} "$(^Name) se instaló para todos los usuarios: desinstálelo como administrador."
LangString TextNeedsAdministrator ${LANG_ENGLISH} "$(^Name) was installed for all users: uninstall it as administrator."

LangString TextDescription ${LANG_SPANISH} "Diseñador de consultas SQL"
LangString TextDescription ${LANG_ENGLISH} "Visual SQL query designer"

; The page of scopes, whose usual Spanish texts have faults.
LangString TextScopeTitle ${LANG_SPANISH} "Elegir usuarios"
LangString TextScopeTitle ${LANG_ENGLISH} "Choose users"
LangString TextScopeSubtitle ${LANG_SPANISH} "Elija para quién se instala $(^NameDA)."
LangString TextScopeSubtitle ${LANG_ENGLISH} "Choose for whom $(^NameDA) is installed."
LangString TextScopeTop ${LANG_SPANISH} "$(^NameDA) puede instalarse para todos los usuarios de este equipo o solo para usted. Lo segundo no necesita derechos de administrador."
LangString TextScopeTop ${LANG_ENGLISH} "$(^NameDA) can be installed for all users of this computer, or for you alone, which needs no administrator rights."
LangString TextScopeAllUsers ${LANG_SPANISH} "Para todos los usuarios de este equipo"
LangString TextScopeAllUsers ${LANG_ENGLISH} "For all users of this computer"
LangString TextScopeCurrentUser ${LANG_SPANISH} "Solo para mí"
LangString TextScopeCurrentUser ${LANG_ENGLISH} "For me alone"
