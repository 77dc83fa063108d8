#pragma once

#include <string>
#include <string_view>

namespace sorvanel::pruebas {

// Bytes as they are. Reading a file that is not there gives nothing; writing throws when it fails,
// since no test can go on then.
std::string leerArchivo(const std::wstring& ruta);
void escribirArchivo(const std::wstring& ruta, std::string_view bytes);
bool existeArchivo(const std::wstring& ruta);

void crearCarpeta(const std::wstring& ruta);
// With the files in it; it has no folders.
void borrarCarpeta(const std::wstring& ruta);

// %ProgramData%, the folder of this test program, and the one for temporary files; without a
// separator at the end.
std::wstring carpetaComun();
std::wstring carpetaPropia();
std::wstring carpetaTemporal();

}  // namespace sorvanel::pruebas
