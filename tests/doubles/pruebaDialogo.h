#pragma once

#include <gtest/gtest.h>

#include <string>

#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/mesaDoble.h"

namespace sorvanel {

// One tool and all that it works on. Wherever a test went, the keyboard was never left nowhere and no two
// controls had one id.
template <typename Dialogo, IdControl ID, typename Mesa = MesaDoble>
class PruebaDialogo : public ::testing::Test {
protected:
    EntornoDoble e;
    FabricaDialogosDoble fabrica;
    Mesa mesa{e};
    Dialogo dialogo{{e.com, e.cola, e.avisos, fabrica}, mesa};

    // With that file, in UTF-8.
    void abrir(const std::string& ini = {}) {
        dialogo.Descargar(true);
        e.ini("\xEF\xBB\xBF" + ini);
        dialogo.Mostrar();
        e.cola.ejecutar();
        ASSERT_NE(fabrica.dialogo(ID), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(ID); }
    void pulsar(IdControl id, int veces = 1) {
        for (int i = 0; i < veces; ++i) ASSERT_TRUE(v().boton(id)->pulsar());
    }
    void TearDown() override {
        if (!dialogo.cargado()) return;
        EXPECT_EQ(v().estado().focosPerdidos, 0);
        EXPECT_EQ(v().estado().clavesRepetidas, 0);
    }
};

}  // namespace sorvanel
