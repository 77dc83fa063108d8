#include "grid/parrilla.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "config/numeros.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "RETICULA";

struct Fracciones {
    double x;
    double y;
};

// "0,5;0,25": two numbers with either decimal sign. What is not a number falls back by itself.
Fracciones leerFracciones(std::string_view texto, double omision) {
    const auto corte = texto.find(';');
    const auto uno = leerNumero(texto.substr(0, corte));
    const auto dos = corte == std::string_view::npos ? std::nullopt : leerNumero(texto.substr(corte + 1));
    return {uno.value_or(omision), dos.value_or(omision)};
}

void leerFilasColumnas(std::string_view texto, AjustesParrilla& ajustes) {
    std::tie(ajustes.filas, ajustes.columnas) =
        leerDosCifras(texto, 'x').value_or(std::pair<std::int16_t, std::int16_t>(4, 1));
    comun::limitar(ajustes.filas, comun::MAXROWS, 1);
    comun::limitar(ajustes.columnas, comun::MAXCOLS, 1);
}

Color leerColorAplicacion(const std::string& texto) {
    return minusculas(texto).starts_with("tran") ? Color{-1} : colorPintable(comun::rgb2Long(texto));
}

float dentro(double valor, float maximo) {
    return static_cast<float>(std::clamp(valor, 0.0, static_cast<double>(std::max(maximo, 0.0F))));
}

std::string pareja(double uno, double dos, const std::string& separador) {
    return textoSeisDecimales(uno, separador) + ";" + textoSeisDecimales(dos, separador);
}

}  // namespace

void leerColoresParrilla(const comun& com, AjustesParrilla& ajustes) {
    const AccesorINI ini = com.consultar(SECCION);
    ajustes.colorReticula = com.valColor(ini, "colorReticula", "000000");
    ajustes.colorFondo = com.valColor(ini, "colorFondo", "808080");
    ajustes.colorAplicacion = leerColorAplicacion(com.valDflt(ini, "colorAplicacion", "FFFFFF"));
}

AjustesParrilla leerParrilla(const comun& com, const oScreen& pantalla) {
    const float ancho = pantalla.Width(), alto = pantalla.Height();
    const AccesorINI ini = com.consultar(SECCION);
    AjustesParrilla ajustes{};

    const Fracciones posicion = leerFracciones(com.valDflt(ini, "Posicion", "0,000000;0,000000"), 0);
    const Fracciones tamano = leerFracciones(com.valDflt(ini, "Dimensiones", "1,000000;1,000000"), 1);
    Rectangulo& zona = ajustes.zona;
    zona.x = dentro(posicion.x * ancho, ancho);
    zona.y = dentro(posicion.y * alto, alto);
    zona.ancho = dentro(tamano.x * ancho, ancho - zona.x);
    zona.alto = dentro(tamano.y * (alto - RESERVA_INFERIOR), alto - zona.y);

    leerFilasColumnas(com.valDflt(ini, "FilasColumnas", "4x1"), ajustes);
    ajustes.gruesoHorizontal = com.valDflt(ini, "gruesoHorizontal", std::int16_t{4});
    ajustes.gruesoVertical = com.valDflt(ini, "gruesoVertical", std::int16_t{4});
    comun::limitar(ajustes.gruesoHorizontal, comun::MAXWIDHORZ, 0);
    comun::limitar(ajustes.gruesoVertical, comun::MAXWIDVERT, 0);
    leerColoresParrilla(com, ajustes);
    return ajustes;
}

void guardarParrilla(const comun& com, const oScreen& pantalla, const AjustesParrilla& ajustes) {
    AccesorINI ini = com.abrir(SECCION);
    const std::string separador = com.separadorDecimal();
    const float ancho = pantalla.Width(), alto = pantalla.Height();
    const float altoUtil = alto - RESERVA_INFERIOR;
    if (ancho > 0 && altoUtil > 0) {
        const Rectangulo& zona = ajustes.zona;
        ini.escribir("Posicion", pareja(zona.x / ancho, zona.y / alto, separador));
        ini.escribir("Dimensiones", pareja(zona.ancho / ancho, zona.alto / altoUtil, separador));
    }
    ini.escribir("FilasColumnas", std::to_string(ajustes.filas) + "x" + std::to_string(ajustes.columnas));
    ini.escribir("gruesoHorizontal", std::to_string(ajustes.gruesoHorizontal));
    ini.escribir("gruesoVertical", std::to_string(ajustes.gruesoVertical));
    ini.escribir("colorReticula", comun::Long2RGB(ajustes.colorReticula));
    ini.escribir("colorFondo", comun::Long2RGB(ajustes.colorFondo));
    ini.escribir("colorAplicacion",
                 ajustes.colorAplicacion < 0 ? "Transparente" : comun::Long2RGB(ajustes.colorAplicacion));
}

}  // namespace sorvanel
