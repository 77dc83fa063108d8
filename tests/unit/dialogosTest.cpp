#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "dialogs/cfgContexto.h"
#include "dialogs/cfgMensaje.h"
#include "dialogs/cfgVisor.h"
#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/mesaDoble.h"

namespace sorvanel {
namespace {

// What holds for every tool with a window.
template <typename Dialogo>
class Dialogos : public ::testing::Test {
protected:
    static constexpr bool VISORES = std::is_same_v<Dialogo, cfgVisor>;
    static constexpr IdControl ID = VISORES                                ? IdControl::cfgVisor
                                    : std::is_same_v<Dialogo, cfgContexto> ? IdControl::cfgContexto
                                                                           : IdControl::cfgMensaje;

    EntornoDoble e;
    FabricaDialogosDoble fabrica;
    MesaDoble mesa{e};
    Dialogo dialogo{e.entorno, fabrica, mesa};

    FormularioDialogoDoble* v() { return fabrica.dialogo(ID); }
    void abrir() {
        std::string ini = "[MENSAJE]\r\nEnUso=Si\r\nFont=Una fuente de nombre muy largo,120,BIU\r\n";
        for (int n = 1; n <= 10; ++n) ini += "[VISOR_" + std::to_string(n) + "]\r\nPort=1\r\nProtocolo=Pavona\r\n";
        e.ini(ini);
        dialogo.Mostrar();
        e.cola.ejecutar();
        ASSERT_NE(v(), nullptr);
        if (VISORES) v()->rotulo(IdControl::lbVis, 3)->pulsar();
    }
    // The panel of one display too, with all that it can show.
    void abrirDelTodo() {
        abrir();
        if (!VISORES) return;
        v()->imagen(IdControl::imFoco, 3)->pulsar();
        for (ControlComun* c : v()->recorrido()) {
            if (auto* casilla = dynamic_cast<CasillaMarcaDoble*>(c)) casilla->pulsar();
        }
    }
    long veces(const std::string& que) const { return std::count(mesa.diario.begin(), mesa.diario.end(), que); }
};

using Todos = ::testing::Types<cfgContexto, cfgMensaje, cfgVisor>;
TYPED_TEST_SUITE(Dialogos, Todos);

constexpr float NADA = 1;

bool seTocan(const Rectangulo& a, const Rectangulo& b) {
    return a.x < b.derecha() - NADA && b.x < a.derecha() - NADA && a.y < b.abajo() - NADA && b.y < a.abajo() - NADA;
}

bool dentro(const Rectangulo& a, const Rectangulo& b) {
    return a.x >= b.x - NADA && a.y >= b.y - NADA && a.derecha() <= b.derecha() + NADA && a.abajo() <= b.abajo() + NADA;
}

// The room that a label's text takes in its own letters; those of the controls where it has none.
MedidaTexto medida(const RotuloDoble& rotulo, const FormularioDialogoDoble& v) {
    SuperficieDoble regla;
    Fuente letra = rotulo.letra;
    if (letra.alto <= 0) letra.alto = v.medir("0").alto / 1.2F;
    regla.fuente(letra);
    return regla.medir(rotulo.texto());
}

TYPED_TEST(Dialogos, nadaSeCortaNiSeSolapaNiSeSale) {
    this->abrirDelTodo();
    FormularioDialogoDoble& v = *this->v();
    std::vector<ControlComun*> marcos, vistos;
    for (ControlComun* c : v.estado().creados) {
        if (!c->seVe) continue;
        const bool esMarco = dynamic_cast<MarcoDoble*>(c) != nullptr;
        EXPECT_TRUE(dentro(c->lugar, v.medidas)) << c->clave();
        EXPECT_FALSE(c->lugar.vacio()) << c->clave();
        for (const ControlComun* marco : marcos) {
            if (!seTocan(c->lugar, marco->lugar)) continue;
            // The row whose panel is open reaches over to it.
            const bool alPanel = c->clave() == numero(IdControl::frVis, 3);
            EXPECT_TRUE(alPanel || dentro(c->lugar, marco->lugar)) << c->clave() << " on " << marco->clave();
        }
        for (const ControlComun* otro : vistos) {
            EXPECT_TRUE(esMarco || !seTocan(c->lugar, otro->lugar)) << c->clave() << " and " << otro->clave();
        }
        (esMarco ? marcos : vistos).push_back(c);
        if (const auto* rotulo = dynamic_cast<RotuloDoble*>(c)) {
            EXPECT_GE(rotulo->lugar.ancho, medida(*rotulo, v).ancho) << rotulo->texto();
            EXPECT_GE(rotulo->lugar.alto, medida(*rotulo, v).alto) << rotulo->texto();
        }
    }
    EXPECT_GE(marcos.size(), 3U);
    EXPECT_GT(vistos.size(), 8U);
}

TEST(Rejilla, loQueOcupaVariasColumnasLasEnsancha) {
    std::vector<Rectangulo> lugares(4);
    const auto anotar = [&](std::size_t i, float ancho) {
        return Pieza{{ancho, 20}, [&lugares, i](const Rectangulo& l) { lugares[i] = l; }, true};
    };
    for (const int estirada : {0, 1}) {
        SCOPED_TRACE(estirada);
        Rejilla r(10, 5);
        r.estirar(estirada);
        r.poner(0, 0, anotar(0, 30));
        r.poner(0, 1, anotar(1, 50));
        r.poner(1, 0, anotar(2, 200), 2);
        EXPECT_EQ(r.minimo(), (Tamano{200, 45}));
        r.colocar({100, 1000, 240, 60});
        const float primera = estirada == 0 ? 180 : 30;
        EXPECT_EQ(lugares[0], (Rectangulo{100, 1000, primera, 20}));
        EXPECT_EQ(lugares[1], (Rectangulo{110 + primera, 1000, 230 - primera, 20}));
        EXPECT_EQ(lugares[2], (Rectangulo{100, 1025, 240, 20}));
    }
}

TYPED_TEST(Dialogos, elTecladoVaComoLaVistaYTodoTieneNombre) {
    this->abrir();
    FormularioDialogoDoble& v = *this->v();
    std::set<int> visitados;
    while (visitados.insert(v.foco()).second) ASSERT_TRUE(v.tabular());
    EXPECT_EQ(visitados.size(), v.recorrido().size());
    // Within one group the eye goes down, and on a line to the right.
    const ControlComun* anterior = nullptr;
    for (const ControlComun* c : v.recorrido()) {
        EXPECT_FALSE(c->textoNombre.empty()) << c->clave();
        const bool mismaColumna = anterior != nullptr && c->clave() != numero(IdControl::imUnload) &&
                                  c->lugar.x < anterior->lugar.derecha() + aTwips(200);
        EXPECT_TRUE(!mismaColumna || c->lugar.x >= anterior->lugar.x || c->lugar.y > anterior->lugar.y) << c->clave();
        anterior = c;
    }
    EXPECT_EQ(anterior->clave(), numero(IdControl::imUnload));
}

TYPED_TEST(Dialogos, cierraDeTodosLosModosYLoSueltaTodo) {
    for (const int modo : {0, 1, 2, 3}) {
        SCOPED_TRACE(modo);
        this->abrir();
        EXPECT_TRUE(this->dialogo.cargado() && this->v()->visible);
        this->mesa.diario.clear();
        switch (modo) {
            case 0:
                EXPECT_TRUE(this->v()->imagen(IdControl::imUnload)->pulsar());
                break;
            case 1:
                this->v()->pedirCierre();
                break;
            case 2:
                EXPECT_TRUE(this->dialogo.Descargar(false));
                break;
            default:
                EXPECT_TRUE(this->dialogo.Descargar(true));
        }
        EXPECT_FALSE(this->dialogo.cargado());
        EXPECT_EQ(this->v(), nullptr);
        EXPECT_EQ(this->veces("desmontarMesa"), 1);
        EXPECT_TRUE(this->dialogo.Descargar(false));
        EXPECT_EQ(this->veces("desmontarMesa"), 1) << "closed already";
    }
}

TYPED_TEST(Dialogos, sigueAlMonitorYSeDisponeDeNuevo) {
    this->abrir();
    FormularioDialogoDoble& v = *this->v();
    EXPECT_EQ(v.centrado, this->e.monitores.lista[0]);
    const int veces = v.vecesCentrado;
    this->dialogo.seguirMonitor(this->e.monitores.lista[0]);
    EXPECT_EQ(v.vecesCentrado, veces) << "not away from where it was dragged to";
    v.medidas = {};
    Monitor otro = this->e.monitores.lista[0];
    otro.twipsPorPixelX = otro.twipsPorPixelY = 7.5F;
    this->dialogo.seguirMonitor(otro);
    EXPECT_EQ(v.centrado, otro);
    EXPECT_GT(v.medidas.ancho, 0);
    // Opened while it is open it is only filled anew.
    const int creados = v.estado().controlesCreados;
    this->mesa.diario.clear();
    this->dialogo.Mostrar();
    ASSERT_EQ(this->v(), &v);
    EXPECT_EQ(v.estado().controlesCreados, creados);
    EXPECT_TRUE(this->mesa.diario.empty());
    EXPECT_EQ(v.estado().clavesRepetidas, 0);
}

TYPED_TEST(Dialogos, puedeIrseConLaVentanaAbierta) {
    {
        TypeParam otro(this->e.entorno, this->fabrica, this->mesa);
        otro.Mostrar();
        EXPECT_NE(this->v(), nullptr);
    }
    EXPECT_EQ(this->v(), nullptr);
}

}  // namespace
}  // namespace sorvanel
