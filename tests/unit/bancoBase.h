#pragma once

#include <gtest/gtest.h>

#include "app/base.h"
#include "doubles/compartidoDoble.h"
#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/formularioDoble.h"

namespace sorvanel {

using Id = IdControl;

constexpr const char* DOS_VISORES =
    "[RETICULA]\r\nFilasColumnas=2x1\r\n"
    "[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nUbicacion=1,1\r\n"
    "[VISOR_2]\r\nPort=3002\r\nEtiqueta=Silo\r\nUbicacion=2,1\r\n";

// The whole program above the seam, on the settings of one test.
struct Banco {
    EntornoDoble e;
    FormularioDoble formulario;
    FabricaDialogosDoble dialogos;
    CompartidoDoble compartido;
    std::unique_ptr<base> b;

    explicit Banco(const std::string& ini, bool arrancar = true) {
        if (!ini.empty()) e.ini(ini);
        b = std::make_unique<base>(e.entorno, formulario, dialogos, compartido);
        if (arrancar) cargar();
    }
    void cargar() {
        b->cargar();
        e.cola.ejecutar();
    }
    void configurar() {
        formulario.pulsar(IdControl::botPau);
        formulario.pulsar(IdControl::botCfg);
    }
    // What the one monitor becomes.
    void pantalla(const RectPixel& area) {
        e.monitores.lista[0].area = area;
        formulario.quienOye->alCambiarMonitores();
    }
    std::string visibles() {
        std::string lista;
        const std::pair<IdControl, const char*> botones[] = {
            {IdControl::botDise, "Dise "},       {IdControl::botVisores, "Visores "}, {IdControl::botSize, "Size "},
            {IdControl::botMensaje, "Mensaje "}, {IdControl::botCfg, "Cfg "},         {IdControl::botRun, "Run "},
            {IdControl::botPau, "Pau "},         {IdControl::botOff, "Off "},         {IdControl::botOk, "Ok "},
            {IdControl::botCan, "Can "}};
        for (const auto& [id, nombre] : botones) {
            if (formulario.boton(id)->seVe) lista += nombre;
        }
        return lista;
    }
    bool puesto(int n) {
        const SuperficieDoble* const suya = formulario.superficie(IdControl::picRep, n);
        return suya != nullptr && suya->visible();
    }
    std::string leyenda(int n) { return formulario.superficie(IdControl::picRep, n)->dicho(); }
    void enviar(int puerto, const char* trama) { e.fabrica.enPuerto(puerto)->llegar(std::string(trama) + "\r"); }
};

}  // namespace sorvanel
