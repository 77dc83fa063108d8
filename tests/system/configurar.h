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
    void abrir(IdControl boton, const VentanaHerramienta& herramienta) {
        programa.pulsar(boton);
        ASSERT_TRUE(herramienta.esperarAbierta());
    }
    // Typed, and entered.
    void entrar(IdControl id, int n, const std::string& texto) const {
        visores.escribir(id, n, texto);
        ASSERT_TRUE(visores.esperarTexto(id, n, texto));
        visores.tecla(id, n, VK_RETURN);
    }
    // The system's own window, once it has that control.
    HWND delSistema(int id) const {
        HWND ventana = nullptr;
        EXPECT_TRUE(esperar([&] { return GetDlgItem(ventana = programa.caja().ventana(), id) != nullptr; }));
        return ventana;
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
