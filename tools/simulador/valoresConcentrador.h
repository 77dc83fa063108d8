#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulador/faltas.h"
#include "simulador/linea.h"

// The values that only the concentrator's options take. All throw ErrorUso.
namespace sorvanel::simulador {

// "12/1-12/8,13/5"; a stretch may go beyond x/99.
std::vector<Direccion> leerDirecciones(std::string_view texto);
// "0,1,3" or "0." for a point that no digit follows
std::vector<Decimales> leerDecimales(std::string_view texto);
Marcas leerMarcasPavona(std::string_view texto);
// "local", "todas" or a name or address
std::vector<std::string> leerEscucha(std::string_view texto);
// Text with \r, \n, \t, \\ and \xHH.
std::string leerTexto(std::string_view texto);
// "cr", "lf" or "crlf"
std::string leerFinLinea(std::string_view texto);
// "saludo", "rep", "abierta", "lecturas:20" or "media:20"
Etapa leerEtapa(std::string_view texto);
// Stages, each with the seconds it lasts or none: "saludo:2,lecturas:20:1.5,rep"
std::vector<Mudez> leerMudeces(std::string_view texto);

}  // namespace sorvanel::simulador
