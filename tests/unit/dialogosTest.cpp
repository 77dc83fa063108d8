#include <algorithm>

#include "dialogs/cfgContexto.h"
#include "dialogs/cfgMensaje.h"
#include "dialogs/cfgVisor.h"
#include "doubles/pruebaDialogo.h"

namespace sorvanel {
namespace {

constexpr const char* VACIA = "limpiar #FFFFFF";  // the empty screen

template <typename Dialogo>
constexpr Id ID = Id::cfgMensaje;
template <>
constexpr Id ID<cfgContexto> = Id::cfgContexto;
template <>
constexpr Id ID<cfgVisor> = Id::cfgVisor;

// What holds for every tool with a window.
template <typename Dialogo>
class Dialogos : public PruebaDialogo<Dialogo, ID<Dialogo>> {
protected:
    void abrirLleno() {
        std::string ini = "[MENSAJE]\r\nEnUso=Si\r\nFont=Una fuente de nombre muy largo,120,BIU\r\n";
        for (int n = 1; n <= 10; ++n) ini += "[VISOR_" + std::to_string(n) + "]\r\nPort=1\r\nProtocolo=Pavona\r\n";
        this->abrir(ini);
        if (RotuloDoble* tercero = this->v().rotulo(Id::lbVis, 3)) tercero->pulsar();
    }
    // The panel of one display too, with all that it can show.
    void abrirDelTodo() {
        abrirLleno();
        if (ID<Dialogo> != Id::cfgVisor) return;
        this->v().boton(Id::imFoco, 3)->pulsar();
        for (ControlComun* c : this->v().recorrido()) {
            if (auto* casilla = dynamic_cast<CasillaMarcaDoble*>(c)) casilla->pulsar();
        }
    }
    bool abierto() const { return this->fabrica.dialogo(ID<Dialogo>) != nullptr; }
    long desmontada() const { return std::count(this->diario.begin(), this->diario.end(), VACIA); }
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
    FormularioDialogoDoble& v = this->v();
    std::vector<ControlComun*> marcos, vistos;
    for (ControlComun* c : v.estado().creados) {
        if (!c->seVe) continue;
        const bool esMarco = dynamic_cast<MarcoDoble*>(c) != nullptr;
        EXPECT_TRUE(dentro(c->lugar, v.medidas)) << c->clave();
        EXPECT_FALSE(c->lugar.vacio()) << c->clave();
        for (const ControlComun* marco : marcos) {
            if (!seTocan(c->lugar, marco->lugar)) continue;
            // The row whose panel is open reaches over to it.
            const bool alPanel = c->clave() == numero(Id::frVis, 3);
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

// On whatever monitor: nothing lies outside the window, nor the window on the bar or the task bar, and its letters are
// as large as that allows.
TYPED_TEST(Dialogos, cabenEnCualquierMonitor) {
    constexpr std::pair<int, int> TAMANOS[] = {{800, 600},  {600, 800},   {1024, 768},  {768, 1024},  {1280, 800},
                                               {1366, 768}, {1080, 1920}, {1920, 1080}, {3840, 2160}, {2160, 3840}};
    for (const auto& [ancho, alto] : TAMANOS) {
        for (const int tanto : {100, 150, 200, 300}) {
            SCOPED_TRACE(std::to_string(ancho) + " x " + std::to_string(alto) + ", " + std::to_string(tanto) + " %");
            const float pixel = 1500.0F / static_cast<float>(tanto);
            const int tareas = 40 * tanto / 100;
            this->e.monitores.lista = {{{0, 0, ancho, alto}, {0, 0, ancho, alto - tareas}, true, "", pixel, pixel}};
            this->abrirDelTodo();
            const FormularioDialogoDoble& v = this->v();
            EXPECT_EQ(v.centrado, (RectPixel{0, 0, ancho, alto - tareas}));
            EXPECT_GE(v.twipsPorPixel, pixel);
            EXPECT_LE(v.twipsPorPixel, 25.01F) << "60 %";
            const float lleno = std::max(v.medidas.ancho / v.twipsPorPixel / static_cast<float>(ancho),
                                         v.medidas.alto / v.twipsPorPixel / static_cast<float>(alto - tareas));
            EXPECT_LE(lleno, 1.0001F);
            EXPECT_TRUE(v.twipsPorPixel == pixel || lleno > 0.96F) << lleno;
            for (const ControlComun* c : this->v().estado().creados)
                EXPECT_TRUE(!c->seVe || dentro(c->lugar, v.medidas)) << c->clave();
        }
    }
}

TEST(Rejilla, loQueOcupaVariasColumnasLasEnsancha) {
    std::vector<Rectangulo> lugares(3);
    const auto anotar = [&](std::size_t i, float ancho) {
        return Pieza{{ancho, 20}, [&lugares, i](const Rectangulo& l) { lugares[i] = l; }, true};
    };
    for (const int estirada : {0, 1}) {
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
    this->abrirLleno();
    FormularioDialogoDoble& v = this->v();
    // Within one group the eye goes down, and on a line to the right.
    const ControlComun* anterior = nullptr;
    for (const ControlComun* c : v.recorrido()) {
        EXPECT_FALSE(c->textoNombre.empty()) << c->clave();
        const bool mismaColumna = anterior != nullptr && c->clave() != numero(Id::imUnload) &&
                                  c->lugar.x < anterior->lugar.derecha() + aTwips(200);
        EXPECT_TRUE(!mismaColumna || c->lugar.x >= anterior->lugar.x || c->lugar.y > anterior->lugar.y) << c->clave();
        anterior = c;
    }
    EXPECT_EQ(anterior->clave(), numero(Id::imUnload));
}

TYPED_TEST(Dialogos, cierraDeTodosLosModosYLoSueltaTodo) {
    const std::function<bool()> modos[] = {
        [this] { return this->v().boton(Id::imUnload)->pulsar(); }, [this] { return this->v().pedirCierre(), true; },
        [this] { return this->dialogo.Descargar(false); }, [this] { return this->dialogo.Descargar(true); }};
    for (const auto& cerrar : modos) {
        SCOPED_TRACE(&cerrar - modos);
        this->abrirLleno();
        EXPECT_TRUE(this->dialogo.cargado() && this->v().visible);
        this->diario.clear();
        this->e.valor("VISORES", "Nota", "1");
        EXPECT_TRUE(cerrar());
        EXPECT_FALSE(this->dialogo.cargado() || this->abierto());
        EXPECT_NE(this->e.archivos.contenido(this->e.rutaINI()).find("Nota=1"), std::string::npos) << "on the disk";
        EXPECT_EQ(this->desmontada(), 1);
        EXPECT_TRUE(this->dialogo.Descargar(false));
        EXPECT_EQ(this->desmontada(), 1) << "closed already";
    }
    {
        TypeParam otro({this->e.com, this->e.cola, this->e.avisos, this->fabrica, this->e.fabrica, this->e.reloj,
                        this->e.bitacora},
                       this->mesa);
        otro.Mostrar();
        EXPECT_TRUE(this->abierto());
    }
    EXPECT_FALSE(this->abierto()) << "gone with its window open";
}

TYPED_TEST(Dialogos, sigueAlMonitorYSeDisponeDeNuevo) {
    this->abrirLleno();
    FormularioDialogoDoble& v = this->v();
    Monitor monitor = this->e.monitores.lista[0];
    const RectPixel sobreLaBarra{0, 0, 1024, 728};
    EXPECT_EQ(v.centrado, sobreLaBarra);
    const int veces = v.vecesCentrado;
    this->dialogo.seguirMonitor(monitor);
    EXPECT_EQ(v.vecesCentrado, veces) << "not away from where it was dragged to";
    v.medidas = {};
    monitor.twipsPorPixelX = monitor.twipsPorPixelY = 7.5F;
    this->dialogo.seguirMonitor(monitor);
    EXPECT_EQ(v.centrado, sobreLaBarra);
    EXPECT_GT(v.medidas.ancho, 0);
    v.arrastrar();
    EXPECT_EQ(v.arrastre, "soltar agarrar ");
    // Opened while it is open it is only filled anew.
    const int creados = v.estado().controlesCreados;
    this->diario.clear();
    this->dialogo.Mostrar();
    ASSERT_EQ(&this->v(), &v);
    EXPECT_EQ(v.estado().controlesCreados, creados);
    EXPECT_TRUE(this->diario.empty());
}

}  // namespace
}  // namespace sorvanel
