#pragma once

#include <string>

#include "harness/programa.h"

// What only the Linux under Wine can do: kill without a word, mount, plug monitors.

namespace sorvanel::medidas {

// Runs that with its shell, and waits for its end: the exit code. Throws after a minute.
int enLinux(const std::string& orden);
// The same, where only 0 is right.
void enLinuxBien(const std::string& orden);
bool somosRoot();
std::string rutaLinux(const std::wstring& ruta);

// The number of the program's process there.
std::string procesoLinux(const pruebas::Programa& programa);
// SIGKILL: not one more of its instructions is run.
void matarDeGolpe(const pruebas::Programa& programa, const std::string& numero);

}  // namespace sorvanel::medidas
