#include "display/disenoVisor.h"

#include "config/comun.h"
#include "config/numeros.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "VISORES";
constexpr float RATIO_OMISION = 0.95F;
constexpr std::int16_t AJUSTE_MAXIMO = 2;

}  // namespace

diseñoVisor::diseñoVisor(const Entorno& entorno) : m_entorno(entorno) {
    const comun com(entorno);
    const AccesorINI ini = com.abrir(SECCION);
    const auto color = [&](const char* clave, const char* omision) {
        return colorPintable(comun::rgb2Long(com.valDflt(ini, clave, omision)));
    };
    m_anchoEtiqueta = com.valDflt(ini, "anchoEtiqueta", std::int16_t{2});
    m_ajusteEtiqueta = com.valDflt(ini, "ajusteEtiqueta", AJUSTE_MAXIMO);
    comun::limitar(m_anchoEtiqueta, comun::MAXWIDLABL, 0);
    comun::limitar(m_ajusteEtiqueta, AJUSTE_MAXIMO, 0);
    m_colorFondoEtiqueta = color("fondoEtiqueta", "FF0000");
    m_colorTextoEtiqueta = color("textoEtiqueta", "FFFFFF");
    m_colorFondoPeso = color("fondoPeso", "FFFFFF");
    m_colorTextoPeso = color("textoPeso", "000000");
    m_formatoPeso = com.valDflt(ini, "formatoPeso", "####0");
    m_ratioAlturas = leerReal(ini.leer("ratioAlturas")).value_or(RATIO_OMISION);
}

void diseñoVisor::guardar() const {
    AccesorINI ini = comun(m_entorno).abrir(SECCION);
    ini.escribir("anchoEtiqueta", std::to_string(m_anchoEtiqueta));
    ini.escribir("ajusteEtiqueta", std::to_string(m_ajusteEtiqueta));
    ini.escribir("fondoEtiqueta", comun::Long2RGB(m_colorFondoEtiqueta));
    ini.escribir("textoEtiqueta", comun::Long2RGB(m_colorTextoEtiqueta));
    ini.escribir("fondoPeso", comun::Long2RGB(m_colorFondoPeso));
    ini.escribir("textoPeso", comun::Long2RGB(m_colorTextoPeso));
    ini.escribir("formatoPeso", m_formatoPeso);
    ini.escribir("ratioAlturas", textoDeReal(m_ratioAlturas, m_entorno.programa.separadorDecimal()));
}

void diseñoVisor::anchoEtiqueta(std::int16_t ancho) {
    comun::limitar(ancho, comun::MAXWIDLABL, 0);
    m_anchoEtiqueta = ancho;
    guardar();
}

void diseñoVisor::ajusteEtiqueta(std::int16_t ajuste) {
    comun::limitar(ajuste, AJUSTE_MAXIMO, 0);
    m_ajusteEtiqueta = ajuste;
    guardar();
}

void diseñoVisor::colorFondoEtiqueta(Color color) {
    m_colorFondoEtiqueta = colorPintable(color);
    guardar();
}

void diseñoVisor::colorTextoEtiqueta(Color color) {
    m_colorTextoEtiqueta = colorPintable(color);
    guardar();
}

void diseñoVisor::colorFondoPeso(Color color) {
    m_colorFondoPeso = colorPintable(color);
    guardar();
}

void diseñoVisor::colorTextoPeso(Color color) {
    m_colorTextoPeso = colorPintable(color);
    guardar();
}

void diseñoVisor::formatoPeso(const std::string& formato) {
    m_formatoPeso = formato;
    guardar();
}

void diseñoVisor::ratioAlturas(float ratio) {
    if (!(ratio > 0.1F && ratio < 1.0F)) return;
    m_ratioAlturas = ratio;
    guardar();
}

}  // namespace sorvanel
