#include "message/ajustesMensaje.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>
#include <vector>

#include "config/numeros.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "MENSAJE";
constexpr double VELOCIDAD_MINIMA = std::numeric_limits<std::int32_t>::min();
constexpr double VELOCIDAD_MAXIMA = std::numeric_limits<std::int32_t>::max();
constexpr double PUNTOS_LEIDOS = 10'000;  // more fits no screen

std::vector<std::string> partes(const std::string& texto) {
    std::vector<std::string> lista;
    if (texto.empty()) return lista;
    std::size_t inicio = 0;
    for (std::size_t coma = 0; (coma = texto.find(',', inicio)) != std::string::npos; inicio = coma + 1) {
        lista.push_back(texto.substr(inicio, coma - inicio));
    }
    lista.push_back(texto.substr(inicio));
    return lista;
}

FuenteMensaje leerFuente(const std::string& texto) {
    const std::vector<std::string> trozos = partes(texto);
    FuenteMensaje fuente;
    if (!trozos.empty() && !trozos[0].empty()) fuente.nombre = trozos[0];
    if (trozos.size() > 1) {
        const auto puntos = leerNumero(trozos[1]);
        if (puntos && *puntos > 0) fuente.puntos = static_cast<float>(std::min(*puntos, PUNTOS_LEIDOS));
    }
    if (trozos.size() > 2) {
        const auto lleva = [&](char letra) { return trozos[2].find(letra) != std::string::npos; };
        fuente.negrita = lleva('B');
        fuente.cursiva = lleva('I');
        fuente.subrayado = lleva('U');
    }
    return fuente;
}

// Somebody wrote it by hand, perhaps with blanks around the comma.
Color leerColor(std::string_view texto, Color omision) {
    texto = recortar(texto);
    const bool hayCifra = !texto.empty() && std::isxdigit(static_cast<unsigned char>(texto[0])) != 0;
    return hayCifra ? colorPintable(comun::rgb2Long(texto)) : omision;
}

}  // namespace

AjustesMensaje leerMensaje(const comun& com) {
    const AccesorINI ini = com.consultar(SECCION);
    AjustesMensaje ajustes;
    ajustes.enUso = leerSiNo(com.valDflt(ini, "EnUso", "No"));
    ajustes.texto = com.valDflt(ini, "Texto", "");
    ajustes.fuente = leerFuente(com.valDflt(ini, "Font", "Arial,64,XXX"));
    const std::vector<std::string> colores = partes(com.valDflt(ini, "Color", "000000,FFFFFF"));
    if (!colores.empty()) ajustes.colorFondo = leerColor(colores[0], ajustes.colorFondo);
    if (colores.size() > 1) ajustes.colorTexto = leerColor(colores[1], ajustes.colorTexto);
    const auto velocidad = leerNumero(com.valDflt(ini, "Velocidad", "4"));
    if (velocidad)
        ajustes.velocidad = static_cast<std::int32_t>(std::clamp(*velocidad, VELOCIDAD_MINIMA, VELOCIDAD_MAXIMA));
    return ajustes;
}

void guardarMensaje(const comun& com, const AjustesMensaje& ajustes) {
    AccesorINI ini = com.abrir(SECCION);
    const FuenteMensaje& f = ajustes.fuente;
    std::string fuente = f.nombre;
    fuente += ',';
    fuente += textoDeReal(f.puntos, ".");
    fuente += ',';
    fuente += f.negrita ? 'B' : 'x';
    fuente += f.cursiva ? 'I' : 'x';
    fuente += f.subrayado ? 'U' : 'x';
    ini.escribir("EnUso", textoSiNo(ajustes.enUso));
    ini.escribir("Texto", ajustes.texto);
    ini.escribir("Font", fuente);
    ini.escribir("Color", comun::Long2RGB(ajustes.colorFondo) + "," + comun::Long2RGB(ajustes.colorTexto));
    ini.escribir("Velocidad", std::to_string(ajustes.velocidad));
}

}  // namespace sorvanel
