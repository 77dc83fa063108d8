#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/montaje.h"
#include "doubles/compartidoDoble.h"
#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/formularioDoble.h"

namespace sorvanel {

using Id = IdControl;

// One tool on the program's own desk, over a window that nobody sees. Wherever a test went, the keyboard was never left
// nowhere and no two controls had one id.
template <typename Dialogo, IdControl ID>
class PruebaDialogo : public ::testing::Test {
protected:
    EntornoDoble e;
    std::vector<std::string> diario;  // what is painted of the grid and the bar, in order
    FormularioDoble formulario;
    FabricaDialogosDoble fabrica;
    CompartidoDoble compartido;
    BarraBotones barra{formulario};
    Montaje mesa{e.entorno, formulario, compartido, barra};
    Dialogo dialogo{{e.com, e.cola, e.avisos, fabrica, e.fabrica, e.reloj, e.bitacora}, mesa};

    PruebaDialogo() {
        for (const IdControl id : {IdControl::picRep, IdControl::picBot}) formulario.superficie(id)->escribirEn(diario);
    }

    // With that file, in UTF-8.
    void abrir(const std::string& ini = {}) {
        dialogo.Descargar(true);
        e.ini("\xEF\xBB\xBF" + ini);
        mesa.cubrir();
        dialogo.Mostrar();
        e.cola.ejecutar();
        ASSERT_NE(fabrica.dialogo(ID), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(ID); }
    void pulsar(IdControl id, int veces = 1) {
        for (int i = 0; i < veces; ++i) ASSERT_TRUE(v().boton(id)->pulsar());
    }
    // A colour of that section is changed by its button and by its frame; a cancelled choice changes nothing.
    void probarColor(IdControl boton, IdControl marco, const std::string& seccion, const std::string& clave,
                     const std::string& antes = {}, const std::string& despues = {}) {
        SCOPED_TRACE(clave + antes);
        const auto guardado = [&](const char* color) {
            EXPECT_EQ(e.valor(seccion, clave), antes + color + despues);
            EXPECT_EQ(comun::Long2RGB(v().color(marco)->color()), color);
        };
        abrir("[" + seccion + "]\r\nEnUso=Si\r\n" + clave + "=" + antes + "102030" + despues + "\r\n");
        pulsar(boton);
        guardado("102030");
        fabrica.eleccion.colores = {0xABCDEF, 0x000001};
        pulsar(boton);
        guardado("ABCDEF");
        EXPECT_TRUE(v().color(marco)->pulsar());
        EXPECT_EQ(fabrica.eleccion.colorInicial, 0xABCDEF);
        guardado("000001");
    }
    void TearDown() override {
        if (!dialogo.cargado()) return;
        EXPECT_EQ(v().estado().focosPerdidos, 0);
        EXPECT_EQ(v().estado().clavesRepetidas, 0);
    }
};

}  // namespace sorvanel
