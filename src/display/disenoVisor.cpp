#include "display/disenoVisor.h"

#include <algorithm>

#include "config/texto.h"
#include "display/registroVisor.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "VISORES";
constexpr const char* ENCIMA = "etiquetaEncima";

// A colour is read as far as it is one; whatever else says nothing is as it is by default.
ValorRasgo leerComun(const FilaRasgo& fila, const std::string& texto) {
    if (fila.clase == ClaseRasgo::color) return acotar(fila, comun::rgb2Long(texto));
    ValorRasgo valor = leerRasgo(fila, texto);
    return vacio(valor) ? leerRasgo(fila, fila.omision) : valor;
}

}  // namespace

diseñoVisor::diseñoVisor(const comun& com) : m_com(com) {
    const AccesorINI ini = com.consultar(SECCION);
    for (const FilaRasgo& fila : RASGOS) {
        m_valores[fila.rasgo] = leerComun(fila, com.valDflt(ini, fila.clave, fila.omision));
    }
    m_etiquetaEncima = leerSiNo(com.valDflt(ini, ENCIMA, "No"));
}

bool diseñoVisor::valor(Rasgo rasgo, const ValorRasgo& nuevo) {
    const auto ratio = tomar<float>(nuevo);
    if (ratio && !(*ratio > 0.1F && *ratio < 1.0F)) return false;
    m_valores[rasgo] = acotar(filaDe(rasgo), nuevo);
    guardar();
    return m_valores[rasgo] == nuevo;
}

void diseñoVisor::etiquetaEncima(bool si) {
    m_etiquetaEncima = si;
    guardar();
}

AspectoVisor diseñoVisor::aspecto() const {
    AspectoVisor aspecto = aspectoDe(m_valores);
    aspecto.etiquetaEncima = m_etiquetaEncima;
    return aspecto;
}

void diseñoVisor::guardar() const {
    AccesorINI ini = m_com.abrir(SECCION);
    const std::string separador = m_com.separadorDecimal();
    for (const FilaRasgo& fila : RASGOS) {
        ini.escribir(fila.clave, escribirRasgo(fila, m_valores[fila.rasgo], separador));
    }
    ini.escribir(ENCIMA, textoSiNo(m_etiquetaEncima));
}

std::vector<Color> coloresEnUso(const comun& com, std::size_t cuantos, std::span<const Color> otros) {
    std::vector<Color> colores;
    const auto uno = [&](Color color) {
        if (std::find(colores.begin(), colores.end(), color) == colores.end()) colores.push_back(color);
    };
    const auto anadir = [&](const ValoresRasgos& valores) {
        for (const FilaRasgo& fila : RASGOS) {
            if (fila.clase == ClaseRasgo::color && !vacio(valores[fila.rasgo])) uno(como<Color>(valores[fila.rasgo]));
        }
    };
    anadir(diseñoVisor(com).valores());
    std::for_each(otros.begin(), otros.end(), uno);
    AccesorINI ini = com.consultar();
    for (int n = 1; n <= MAXIMO_VISORES && colores.size() < cuantos; ++n) {
        ini.seccion(seccionVisor(n));
        if (ini.leer("Port").empty()) break;
        anadir(leerRegistroVisor(com, ini).rasgos);
    }
    if (colores.size() > cuantos) colores.resize(cuantos);
    return colores;
}

}  // namespace sorvanel
