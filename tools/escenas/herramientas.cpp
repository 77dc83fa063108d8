// The configuration tools, each in each of its states, and the focus on each kind of control.

#include <utility>

#include "escena.h"
#include "harness/sistema.h"

namespace sorvanel::escenas {
namespace {

using namespace pruebas;
using enum IdControl;

struct Foco {
    const char* nombre;
    IdControl id;
    int elemento = 0;
};

template <std::size_t N>
void fotosConFoco(Escena& e, const Foco (&focos)[N]) {
    for (const Foco& foco : focos) {
        e.enfocar(foco.id, foco.elemento);
        e.foto(foco.nombre);
    }
}

void contexto(Escena& e) {
    e.configurar(parrillaLlena(2, 2));
    e.abrir(botDise, cfgContexto, imUnload);
    e.foto("contexto");
    constexpr Foco FOCOS[] = {{"contexto_foco_mas", imRwP},        {"contexto_foco_color", frColorRet},
                              {"contexto_foco_boton", botColFdEt}, {"contexto_foco_casilla", ckTrpa},
                              {"contexto_foco_lista", lstAjte},    {"contexto_foco_formato", txFmt},
                              {"contexto_foco_ratio", txRatio},    {"contexto_foco_cerrar", imUnload}};
    fotosConFoco(e, FOCOS);
    e.pulsar(ckTrpa, 0, botColorApp, 0, false);
    e.foto("contexto_transparente");
}

// Other values than the usual, those that have an end at their end.
void contextoLimites(Escena& e) {
    Configuracion ini;
    ini.reticula(8, 8).clave("gruesoVertical", "99").clave("gruesoHorizontal", "0");
    ini.clave("colorReticula", "0000FF").clave("colorFondo", "80FFFF").clave("colorAplicacion", "703010");
    ini.seccion("VISORES").clave("anchoEtiqueta", "6").clave("ajusteEtiqueta", "1").clave("formatoPeso", "##0.000");
    ini.clave("fondoEtiqueta", "7A3B12").clave("textoEtiqueta", "00FFFF").clave("fondoPeso", "002000");
    ini.clave("textoPeso", "00FF80").clave("ratioAlturas", "0,9");
    e.configurar(ini.visor(PUERTO, 1, 1));
    e.abrir(botDise, cfgContexto, imUnload);
    e.foto("contexto_limites");
}

void visoresDeLaNada(Escena& e) {
    e.configurar("");
    e.foto("de_la_nada");
    e.abrir(botVisores, cfgVisor, botNvo);
    e.foto("visores_0");
    e.pulsar(botNvo, 0, imFoco, 1);
    e.foto("visores_nuevo");
}

void visores(Escena& e) {
    e.configurar(parrillaLlena(2, 1));
    e.abrir(botVisores, cfgVisor, imFoco, 2);
    e.foto("visores_2");
    constexpr Foco FOCOS[] = {{"visores_foco_familia", imPtc, 1},   {"visores_foco_port", txPort, 2},
                              {"visores_foco_modo", lstModo, 2},    {"visores_foco_etiqueta", txEtq, 2},
                              {"visores_foco_ubicacion", txUbi, 2}, {"visores_foco_diseno", imFoco, 2},
                              {"visores_foco_nuevo", botNvo},       {"visores_foco_eliminar", botElim}};
    fotosConFoco(e, FOCOS);
    e.enfocar(lstModo, 1);
    const HWND lista = e.herramienta().control(lstModo, 1);
    pruebas::pulsar(lista);
    exigir(esperar([&] { return SendMessageW(lista, CB_GETDROPPEDSTATE, 0, 0) != 0; }), "the list does not open");
    e.foto("visores_lista_abierta");
}

void recepcion(Escena& e) {
    EmisorUDP indicador;
    e.configurar(parrillaLlena(2, 1));
    e.abrir(botVisores, cfgVisor, imFoco, 2);
    e.enfocar(txPort, 2);
    const auto enviar = [&] { indicador.enviar(PUERTO + 1, "\x02+  12,5 kg\r\n"); };
    const auto dicho = [&] { return e.herramienta().texto(lbRecepcion).starts_with("Llega algo"); };
    exigir(insistir(enviar, dicho), "it does not say what comes");
    e.mientras(enviar);
    e.foto("visores_recepcion");
    e.mientras({});
}

void particular(Escena& e) {
    constexpr std::pair<IdControl, IdControl> CASILLAS[] = {
        {ckWid, imWidEtP},     {ckAdj, lstAjte},      {ckTxEt, frColorTxEt}, {ckFdEt, frColorFdEt},
        {ckTxPe, frColorTxPe}, {ckFdPe, frColorFdPe}, {ckRat, txRatio},      {ckFmt, txFmt}};
    e.configurar(parrillaLlena(2, 1));
    e.abrir(botVisores, cfgVisor, imFoco, 2);
    e.pulsar(imFoco, 2, ckFmt, 0);
    e.foto("particular_sin_marcar");
    for (const auto& [casilla, suyo] : CASILLAS) e.pulsar(casilla, 0, suyo, 0);
    e.foto("particular_marcado");
    constexpr Foco FOCOS[] = {{"particular_foco_mas", imWidEtP},
                              {"particular_foco_casilla", ckAdj},
                              {"particular_foco_color", frColorTxPe},
                              {"particular_foco_formato", txFmt},
                              {"particular_foco_cerrar", imDesf}};
    fotosConFoco(e, FOCOS);
    for (const auto& [casilla, suyo] : CASILLAS) e.pulsar(casilla, 0, suyo, 0, false);
    e.foto("particular_desmarcado");
    e.pulsar(imDesf, 0, ckFmt, 0, false);
    e.foto("particular_cerrado");
}

void paginas(Escena& e) {
    e.configurar(parrillaLlena(4, 3));
    e.abrir(botVisores, cfgVisor, imFoco, 8);
    e.foto("visores_12");
    e.pulsar(imBajar, 0, imFoco, 12);
    e.foto("visores_12_pagina_2");
    e.enfocar(txEtq, 12);
    e.foto("visores_12_elegido");
    e.pulsar(imFoco, 12, ckFmt, 0);
    e.foto("visores_12_particular");
}

// Dragged by the mouse from one corner of the screen to two others: to a free cell, and onto another display.
void situar(Escena& e) {
    for (const int lado : {2, 8}) {
        const std::string nombre = "situar_" + std::to_string(lado) + "x" + std::to_string(lado);
        e.configurar(parrillaLlena(lado, lado, lado * lado - 1));
        e.abrir(botVisores, cfgVisor, imFoco, 3);
        e.foto(nombre);
        const RECT todo = lugar(e.programa().ventana());
        const LONG dentro = (todo.right - todo.left) / lado / 5;
        const POINT desde{todo.left + dentro, todo.top + dentro};
        const std::pair<POINT, const char*> destinos[] = {{{todo.right - dentro, todo.bottom - 32 - dentro}, "_mover"},
                                                          {{todo.right - dentro, todo.top + dentro}, "_intercambiar"}};
        for (const auto& destino : destinos) {
            arrastrarEnPantalla(desde, destino.first, [&] {
                exigir(e.programa().esperarVisible(picMarca, 4), "nothing says what the drag would do");
                e.foto(nombre + destino.second);
                teclear(e.programa().ventana(), VK_ESCAPE);
                exigir(esperar([&] { return !e.programa().seVe(picMarca, 4); }), "Escape does not end it");
            });
            Sleep(GetDoubleClickTime());  // the next press is none of a double click's
        }
    }
}

void visoresPavona(Escena& e) {
    Configuracion ini = parrillaLlena(3, 1, 1);
    for (int i = 0; i < 2; ++i)
        ini.visor(305 + i, i + 2, 1).clave("Protocolo", "Pavona").clave("ModoBulk", std::to_string(3 * i));
    ini.clave("Etiqueta", "Una etiqueta que no cabe en su caja");
    ini.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", std::to_string(CONCENTRADOR));
    e.configurar(ini);
    e.abrir(botVisores, cfgVisor, imFoco, 3);
    e.foto("visores_pavona");
    constexpr Foco FOCOS[] = {{"visores_pavona_foco_port", txPort, 2},
                              {"visores_pavona_foco_etiqueta", txEtq, 3},
                              {"visores_pavona_foco_host", txPavHost}};
    fotosConFoco(e, FOCOS);
    e.pulsar(imFoco, 2, ckFmt, 0);
    e.foto("visores_pavona_particular");
}

void mensaje(Escena& e) {
    Configuracion ini = parrillaLlena(2, 2);
    ini.seccion("MENSAJE").clave("EnUso", "No").clave("Texto", "Cierre de la planta a las 14:30 ñÑ€");
    ini.clave("Font", "Arial,32,BxU").clave("Color", "302010,00D0E0").clave("Velocidad", "0");
    e.configurar(ini);
    e.abrir(botMensaje, cfgMensaje, ckUsar);
    e.foto("cfg_mensaje_sin_usar");
    e.pulsar(ckUsar, 0, txTexto, 0);
    exigir(e.programa().esperarVisible(picMsg), "no message is seen");
    e.foto("cfg_mensaje_en_uso");
    constexpr Foco FOCOS[] = {{"cfg_mensaje_foco_texto", txTexto},
                              {"cfg_mensaje_foco_fuente", botFont},
                              {"cfg_mensaje_foco_color", frColorBak},
                              {"cfg_mensaje_foco_velocidad", imVelP}};
    fotosConFoco(e, FOCOS);
    e.pulsar(botAjustar, 0, botAjustar, 0, false);
    e.foto("cfg_mensaje_ajustada");
    e.pulsar(ckUsar, 0, txTexto, 0, false);
    e.foto("cfg_mensaje_ya_sin_usar");
}

}  // namespace

const std::vector<Acto> HERRAMIENTAS{{L"contexto", contexto},
                                     {L"contexto_limites", contextoLimites},
                                     {L"de_la_nada", visoresDeLaNada},
                                     {L"visores", visores},
                                     {L"recepcion", recepcion},
                                     {L"particular", particular},
                                     {L"paginas", paginas},
                                     {L"situar", situar},
                                     {L"visores_pavona", visoresPavona},
                                     {L"cfg_mensaje", mensaje}};

}  // namespace sorvanel::escenas
