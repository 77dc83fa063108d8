#pragma once

#include <gtest/gtest.h>

#include <string>

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {

// A program that is being configured, with two displays one above the other.
class Configurar : public testing::Test {
protected:
    // Starts with that file and goes into configuration.
    void configurar(const std::string& ini) {
        original = ini;
        programa.escribirINI(ini);
        ASSERT_TRUE(programa.marchar() && programa.pausar());
        programa.pulsar(IdControl::botCfg);
        ASSERT_TRUE(programa.esperarVisible(IdControl::botOk));
    }
    bool esperarINI(const std::string& trozo) {
        return esperar([&] { return programa.leerINI().find(trozo) != std::string::npos; });
    }
    bool abrir(IdControl boton, const VentanaHerramienta& herramienta) {
        programa.pulsar(boton);
        return herramienta.esperarAbierta();
    }

    int puerto = puertosLibres(2);
    std::string dosVisores = Configuracion().reticula(2, 1).visor(puerto, 1, 1).visor(puerto + 1, 2, 1);
    std::string original;
    Programa programa;
    VentanaHerramienta visores{programa, IdControl::cfgVisor};
    VentanaHerramienta contexto{programa, IdControl::cfgContexto};
    VentanaHerramienta mensaje{programa, IdControl::cfgMensaje};
};

}  // namespace sorvanel::pruebas
