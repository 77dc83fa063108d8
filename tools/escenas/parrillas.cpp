// What is seen without a tool: grids, weights, marks, silence, the message band, and the bar in each state.

#include <memory>

#include "escena.h"
#include "harness/red.h"
#include "harness/sistema.h"

namespace sorvanel::escenas {
namespace {

using namespace pruebas;
using enum IdControl;

std::vector<std::string> pesos(int cuantos) {
    std::vector<std::string> tramas;
    tramas.reserve(static_cast<std::size_t>(cuantos));
    for (int i = 0; i < cuantos; ++i) tramas.push_back(trama((i * 7919 + 40) % 60000 * 1000 + 250));
    return tramas;
}

void rejillas(Escena& e) {
    for (const auto& [filas, columnas] : {std::pair{1, 1}, {2, 2}, {3, 4}, {8, 8}}) {
        e.arrancar(parrillaLlena(filas, columnas));
        e.pesar(pesos(filas * columnas));
        e.foto("rejilla_" + std::to_string(filas) + "x" + std::to_string(columnas));
    }
}

// One value of its own after the other, the last display all of them.
void propios(Escena& e) {
    constexpr const char* CLAVES[][2] = {
        {"formatoPeso", "##0.00"},   {"formatoPeso", "####0\" kg\""}, {"fondoEtiqueta", "7A3B12"},
        {"textoEtiqueta", "00FFFF"}, {"fondoPeso", "000000"},         {"textoPeso", "00FF80"},
        {"anchoEtiqueta", "6"},      {"anchoEtiqueta", "1"},          {"ajusteEtiqueta", "0"},
        {"ajusteEtiqueta", "1"},     {"ratioAlturas", "0,2"},
    };
    Configuracion ini;
    ini.reticula(4, 3).clave("colorReticula", "404040").clave("gruesoVertical", "8").clave("gruesoHorizontal", "1");
    ini.seccion("VISORES").clave("anchoEtiqueta", "3").clave("ajusteEtiqueta", "2").clave("fondoPeso", "E0FFFF");
    int n = 0;
    const auto visor = [&] {
        ini.visor(PUERTO + n, n / 3 + 1, n % 3 + 1).clave("Etiqueta", "Silo " + std::to_string(n + 1));
        ++n;
    };
    for (const auto& [clave, valor] : CLAVES) {
        visor();
        ini.clave(clave, valor);
    }
    visor();
    for (const auto& [clave, valor] : CLAVES) ini.clave(clave, valor);
    e.arrancar(ini);
    e.pesar(pesos(n));
    e.foto("colores_y_formatos");
}

// With the captions above; weights that are wider than their area.
void encima(Escena& e) {
    for (const auto& [filas, columnas] : {std::pair{3, 2}, {8, 8}}) {
        Configuracion ini = parrillaLlena(filas, columnas);
        ini.seccion("VISORES").clave("etiquetaEncima", "Sí").clave("formatoPeso", "0000.0");
        e.arrancar(ini);
        std::vector<std::string> tramas = pesos(filas * columnas);
        tramas[1] = trama(99'999'900, "EXX");
        e.pesar(tramas);
        e.foto("encima_" + std::to_string(filas) + "x" + std::to_string(columnas));
    }
}

void etiquetas(Escena& e) {
    constexpr const char* TEXTOS[] = {"Báscula puente de la entrada principal", "Ñandú",
                                      "Cañón número 3 de la línea dos",         "Ensacado y paletizado de harina",
                                      "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW",        "i"};
    Configuracion ini;
    ini.reticula(6, 2);
    for (int i = 0; i < 12; ++i)
        ini.visor(PUERTO + i, i / 2 + 1, i % 2 + 1)
            .clave("Etiqueta", TEXTOS[i % 6] + std::string(i < 6 ? "" : "."))
            .clave("anchoEtiqueta", std::to_string(i % 7))
            .clave("ajusteEtiqueta", std::to_string(i % 3));
    e.arrancar(ini);
    e.pesar(pesos(12));
    e.foto("etiquetas_largas");
}

void marcas(Escena& e) {
    e.arrancar(parrillaLlena(3, 2));
    e.pesar({trama(1000, "EXX"), trama(22000, "XCX"), trama(333000, "XXD"), trama(4444000, "ECD"),
             trama(55555000, "XCD"), trama(0)});
    e.foto("marcas");
}

void sinDatos(Escena& e) {
    e.arrancar(parrillaLlena(2, 2));
    for (int n = 1; n <= 4; ++n) e.esperarPeso(n, "-----");
    e.foto("sin_datos");
    e.pausar();
    e.foto("pausa");
}

void pavona(Escena& e) {
    auto concentrador = std::make_unique<Concentrador>(CONCENTRADOR);
    Configuracion ini = parrillaLlena(2, 2, 2);
    for (int i = 0; i < 2; ++i)
        ini.visor(305 + i, 2, i + 1).clave("Protocolo", "Pavona").clave("ModoBulk", "0").clave("formatoPeso", "###0.0");
    ini.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", std::to_string(CONCENTRADOR));
    e.arrancar(ini);
    e.pesar(pesos(2));
    exigir(concentrador->abrirSesion(), "no session");
    EmisorUDP indicador;
    e.mientras([&] {
        for (int i = 0; i < 2; ++i) indicador.enviar(PUERTO + i, pesos(2)[static_cast<std::size_t>(i)]);
        concentrador->decir(lineaPavona(305, "C-", "12.5") + lineaPavona(306, "-D", "9999.9"));
    });
    e.esperarPeso(3, "12.5");
    e.esperarPeso(4, "9999.9");
    e.foto("pavona");
    e.vaciar();
}

Configuracion enMedio(const char* colorAplicacion) {
    Configuracion ini;
    ini.reticula(2, 2).clave("Posicion", "0,25;0,25").clave("Dimensiones", "0,5;0,5");
    ini.clave("colorAplicacion", colorAplicacion);
    for (int i = 0; i < 3; ++i) ini.visor(PUERTO + i, i / 2 + 1, i % 2 + 1).clave("Etiqueta", "Tolva");
    return ini;
}

void transparente(Escena& e) {
    e.arrancar(enMedio("Transparente"));
    e.pesar(pesos(3));
    e.foto("transparente_marcha");
    e.pausar();
    e.foto("transparente_pausa");
    e.arrancar(enMedio("1177DD"));
    e.pesar(pesos(3));
    e.foto("color_de_aplicacion");
}

void mensaje(Escena& e) {
    for (const auto& [nombre, fuente] :
         {std::pair{"mensaje_quieto", "Arial,40"}, {"mensaje_adornado", "Arial,20,BIU"}}) {
        Configuracion ini = parrillaLlena(2, 2);
        ini.seccion("MENSAJE").clave("EnUso", "Si").clave("Texto", "Cierre de la planta a las 14:30 ñÑ€");
        ini.clave("Font", fuente).clave("Color", "302010,00D0E0").clave("Velocidad", "0");
        e.arrancar(ini);
        e.pesar(pesos(4));
        e.foto(nombre);
    }
    e.pausar();
    e.foto("mensaje_pausa");
}

void barra(Escena& e) {
    e.arrancar(parrillaLlena(1, 1));
    e.pesar(pesos(1));
    for (const auto& [nombre, id] : {std::pair{"barra_foco_pausa", botPau}, {"barra_foco_salir", botOff}}) {
        e.enfocar(id);
        e.foto(nombre);
    }
    e.pausar();
    e.enfocar(botCfg);
    e.foto("barra_foco_configurar");
    const HWND boton = e.programa().control(botRun);
    e.enfocar(botRun);
    PostMessageW(boton, WM_KEYDOWN, VK_SPACE, 1);
    exigir(esperar([&] { return (SendMessageW(boton, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0; }), "it does not go down");
    e.foto("barra_pulsado");
    e.configurar(parrillaLlena(1, 1));
    e.foto("barra_configurando");
    e.enfocar(botVisores);
    e.foto("barra_foco_visores");
    e.programa().pulsar(botCan);
    exigir(e.programa().esperarTexto(lbEstado, 0, "Cambios cancelados: acepte para volver"), "it is not told");
    e.foto("barra_cancelado");
}

void incidencia(Escena& e) {
    EmisorUDP otro;
    exigir(otro.ocupar(PUERTO), "the port is taken already");
    e.arrancar(parrillaLlena(2, 1));
    exigir(!e.programa().caja().esperarTexto().empty() && e.programa().caja().cerrar(), "nothing is told");
    e.esperarPeso(2, "-----");
    e.foto("incidencia");
}

void asas(Escena& e) {
    for (const auto& [nombre, color] : {std::pair{"asas", "1177DD"}, {"asas_transparente", "Transparente"}}) {
        e.configurar(enMedio(color));
        e.programa().pulsar(botSize);
        exigir(e.programa().esperarVisible(imDrgWH), "no handle comes");
        e.foto(nombre);
        e.enfocar(imDrgWH);
        PostMessageW(e.programa().control(imDrgWH), WM_KEYDOWN, VK_LEFT, 1);
        exigir(e.programa().esperarVisible(lbMedida), "no measure is seen");
        e.foto(nombre + std::string("_medida"));
        e.enfocar(imDrgXY);
        e.foto(nombre + std::string("_foco"));
    }
}

}  // namespace

const std::vector<Acto> PARRILLAS{
    {L"rejillas", rejillas}, {L"propios", propios},    {L"encima", encima},         {L"etiquetas", etiquetas},
    {L"marcas", marcas},     {L"sin_datos", sinDatos}, {L"pavona", pavona},         {L"transparente", transparente},
    {L"mensaje", mensaje},   {L"barra", barra},        {L"incidencia", incidencia}, {L"asas", asas}};

}  // namespace sorvanel::escenas
