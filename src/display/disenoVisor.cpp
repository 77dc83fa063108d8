#include "display/disenoVisor.h"

#include "config/texto.h"

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

}  // namespace sorvanel
