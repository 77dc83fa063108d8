#include "display/disenoVisor.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "VISORES";

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
}

bool diseñoVisor::valor(Rasgo rasgo, const ValorRasgo& nuevo) {
    const auto ratio = tomar<float>(nuevo);
    if (ratio && !(*ratio > 0.1F && *ratio < 1.0F)) return false;
    m_valores[rasgo] = acotar(filaDe(rasgo), nuevo);
    AccesorINI ini = m_com.abrir(SECCION);
    const std::string separador = m_com.separadorDecimal();
    for (const FilaRasgo& fila : RASGOS) {
        ini.escribir(fila.clave, escribirRasgo(fila, m_valores[fila.rasgo], separador));
    }
    return m_valores[rasgo] == nuevo;
}

}  // namespace sorvanel
