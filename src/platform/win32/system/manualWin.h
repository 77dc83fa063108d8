#pragma once

#include <string>

namespace sorvanel {

// Opens that HTML file at the section with that name, in the user's browser. Returns at once: the system may take
// seconds over a program that was not open, and the one thread has weights to show. What cannot be opened the system
// itself tells the user.
void abrirManualAparte(std::wstring ruta, std::wstring apartado);
// The same of a text file, in whatever the user reads such files with.
void abrirTextoAparte(std::wstring ruta);

}  // namespace sorvanel
