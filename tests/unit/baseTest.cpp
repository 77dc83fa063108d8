#include <gtest/gtest.h>

#include "app/base.h"
#include "doubles/entornoDoble.h"
#include "doubles/formularioDoble.h"

namespace sorvanel {
namespace {

constexpr const char* DOS_VISORES =
    "[RETICULA]\r\nFilasColumnas=2x1\r\n"
    "[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nUbicacion=1,1\r\n"
    "[VISOR_2]\r\nPort=3002\r\nEtiqueta=Silo\r\nUbicacion=2,1\r\n";

struct Banco {
    EntornoDoble e;
    FormularioDoble formulario;
    EnlaceAusente ausente;
    std::unique_ptr<base> b;

    explicit Banco(const std::string& ini, bool arrancar = true) {
        if (!ini.empty()) e.ini(ini);
        b = std::make_unique<base>(e.entorno, formulario, ausente);
        if (arrancar) {
            b->cargar();
            e.cola.ejecutar();
        }
    }
    std::string visibles() {
        std::string lista;
        for (const auto& [id, nombre] :
             {std::pair{IdControl::botDise, "Dise "}, {IdControl::botVisores, "Visores "}, {IdControl::botSize, "Size "},
              {IdControl::botMensaje, "Mensaje "}, {IdControl::botCfg, "Cfg "}, {IdControl::botRun, "Run "},
              {IdControl::botPau, "Pau "}, {IdControl::botOff, "Off "}, {IdControl::botOk, "Ok "},
              {IdControl::botCan, "Can "}}) {
            if (formulario.boton(id)->visible) lista += nombre;
        }
        return lista;
    }
    std::string leyenda(int n) { return formulario.superficie(IdControl::picRep, n)->textoLeyenda(); }
    void enviar(int puerto, const char* trama) { e.fabrica.enPuerto(puerto)->llegar(std::string(trama) + "\r"); }
};

TEST(base, conVisoresArrancaSola) {
    Banco t(DOS_VISORES);
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    EXPECT_EQ(t.visibles(), "Pau Off ");
    EXPECT_EQ(t.formulario.cubierto.area, (RectPixel{0, 0, 1024, 768}));
    EXPECT_TRUE(t.e.reposo.impedido);
    EXPECT_TRUE(t.e.avisos.textos.empty());
    t.enviar(3002, "XNZ+00055000");
    EXPECT_EQ(t.leyenda(2), "55");
    EXPECT_EQ(t.formulario.superficie(IdControl::lbVer)->textoLeyenda(), "1.00A");
    t.formulario.quienOye->alActivar();
    EXPECT_EQ(t.e.cola.pendientes(), 0U) << "later activations do nothing";
}

TEST(base, laVersionLlevaDosCifrasYUnaLetra) {
    EXPECT_EQ(textoVersion({1, 2, 1}), "1.02A");
    EXPECT_EQ(textoVersion({12, 34, 26}), "12.34Z");
}

TEST(base, sinVisoresAbreConfigurando) {
    Banco t("");
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    EXPECT_EQ(t.visibles(), "Dise Visores Size Mensaje Ok Can ");
    EXPECT_TRUE(t.e.archivos.existe(comun(t.e.entorno).rutaCopia()));
    EXPECT_TRUE(t.formulario.pulsar(IdControl::botOk));
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.visibles(), "Cfg Run Off ");
}

TEST(base, pausaMarchaConfiguracionYVuelta) {
    Banco t(DOS_VISORES);
    t.enviar(3001, "XNZ+00012000");
    t.formulario.pulsar(IdControl::botPau);
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_FALSE(t.e.reposo.impedido);
    EXPECT_TRUE(t.e.fabrica.enPuerto(3001) == nullptr);
    EXPECT_EQ(t.leyenda(1), "");
    t.formulario.pulsar(IdControl::botRun);
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    EXPECT_EQ(t.formulario.superficie(IdControl::picRep, 1), nullptr) << "torn down";
    EXPECT_EQ(t.formulario.superficie(IdControl::picCap, 2), nullptr);
    t.e.valor("VISOR_1", "Etiqueta", "Cambiada");
    t.formulario.pulsar(IdControl::botCan);
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    EXPECT_EQ(t.e.ini(), DOS_VISORES) << "every byte is back";
    t.formulario.pulsar(IdControl::botOk);
    EXPECT_EQ(t.b->estado(), Estado::pausa) << "running is not resumed by itself";
    EXPECT_NE(t.formulario.superficie(IdControl::picRep, 2), nullptr);
}

TEST(base, unaCopiaQueFallaDejaElEstadoComoEsta) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botPau);
    t.e.archivos.fallarEscritura = true;
    t.formulario.pulsar(IdControl::botCfg);
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.e.avisos.textos, std::vector<std::string>{"Error al hacer copia de configuración"});
    EXPECT_NE(t.formulario.superficie(IdControl::picRep, 1), nullptr);
}

TEST(base, losErroresVanJuntosYLosDemasYaCorren) {
    Banco t(std::string(DOS_VISORES) + "[VISOR_3]\r\nPort=3003\r\nUbicacion=9,9\r\n" +
                "[VISOR_4]\r\nProtocolo=Pavona\r\nPort=1203\r\nUbicacion=1,1\r\n",
            false);
    t.e.fabrica.red().ocupados = {3001};
    bool corriaYa = false;
    t.e.avisos.alMostrar = [&](const std::string&) { corriaYa = t.e.fabrica.enPuerto(3002) != nullptr; };
    t.b->cargar();
    EXPECT_TRUE(t.e.avisos.textos.empty()) << "not from within the activation";
    t.e.cola.ejecutar();
    ASSERT_EQ(t.e.avisos.textos.size(), 1U);
    EXPECT_EQ(t.e.avisos.textos[0],
              "Visor #3: Ubicación no compatible con la retícula\nError en reconexión TCP/IP\n"
              "Port 1203 inadecuado. Posiblemente en uso\n");
    EXPECT_TRUE(corriaYa) << "a box that nobody answers must not hold up the others";
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    EXPECT_NE(t.e.ini().find("Protocolo=Pavona"), std::string::npos);
}

TEST(base, losBotonesSeDisponenDesdeLaDerecha) {
    for (const int ancho : {640, 1024, 3840}) {
        Banco t(DOS_VISORES, false);
        t.e.monitores.lista[0].area = {0, 0, ancho, 768};
        t.b->cargar();
        t.e.cola.ejecutar();
        const auto lugar = [&](IdControl id) { return t.formulario.boton(id)->lugar; };
        const auto ancho15 = static_cast<float>(ancho * 15);
        EXPECT_EQ(lugar(IdControl::botOff).derecha(), ancho15 - 60);
        EXPECT_EQ(lugar(IdControl::botRun).derecha(), lugar(IdControl::botOff).x - 60);
        EXPECT_EQ(lugar(IdControl::botPau), lugar(IdControl::botRun));
        EXPECT_EQ(lugar(IdControl::botCfg).derecha(), lugar(IdControl::botRun).x - 60);
        EXPECT_EQ(lugar(IdControl::botCan), lugar(IdControl::botOff));
        EXPECT_EQ(lugar(IdControl::botOk), lugar(IdControl::botRun));
        const bool conTexto = ancho != 640;
        EXPECT_EQ(t.formulario.boton(IdControl::botDise)->textoRotulo.empty(), !conTexto) << ancho;
        EXPECT_LT(lugar(IdControl::botMensaje).derecha(), lugar(IdControl::botCfg).x) << ancho;
    }
}

TEST(base, enMarchaElCursorQuedaEnLaBarra) {
    Banco t(DOS_VISORES, false);
    t.e.monitores.lista[0].area = {-1024, -100, 0, 668};  // the bar from 636 to 668
    t.b->cargar();
    t.e.cola.ejecutar();
    const auto mover = [&](std::int32_t y) {
        t.e.cursor.punto = {-500, y};
        t.formulario.quienOye->alMoverRaton(ZonaRaton::representacion);
        EXPECT_EQ(t.e.cursor.punto.x, -500);
        return t.e.cursor.punto.y;
    };
    EXPECT_EQ(mover(100), 636);
    EXPECT_EQ(mover(636), 636);
    EXPECT_EQ(mover(660), 660);
    EXPECT_EQ(mover(661), 660);
    EXPECT_EQ(t.formulario.ultimoPuntero, Puntero::marcha);
    t.formulario.quienOye->alMoverRaton(ZonaRaton::barra);
    EXPECT_EQ(t.formulario.ultimoPuntero, Puntero::normal);
    t.formulario.pulsar(IdControl::botPau);
    EXPECT_EQ(mover(100), 100) << "only while running";
    EXPECT_EQ(t.formulario.ultimoPuntero, Puntero::normal);
}

TEST(base, unMonitorQueCambiaRedisponeSinPararNada) {
    Banco t(DOS_VISORES);
    t.enviar(3001, "XNZ+00012000");
    const auto leidas = t.e.fabrica.zocalos();
    t.e.monitores.lista[0].area = {0, 0, 1920, 1080};
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.cubierto.area, (RectPixel{0, 0, 1920, 1080}));
    EXPECT_EQ(t.formulario.superficie(IdControl::picRep, 1)->lugar().derecha(), (1920 - 4) * 15.0F);
    EXPECT_EQ(t.leyenda(1), "12");
    EXPECT_EQ(t.e.fabrica.zocalos(), leidas) << "the links are the same";
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    const int veces = t.formulario.veces;
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces) << "nothing changed, nothing moves";
    t.e.monitores.lista.clear();
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces) << "no monitor for a while: it stays";
    EXPECT_EQ(t.leyenda(1), "12");
}

TEST(base, cerrarDesmontaYNoVuelveAConstruir) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botOff);
    EXPECT_TRUE(t.e.fabrica.zocalos().empty());
    EXPECT_FALSE(t.e.reposo.impedido);
    EXPECT_EQ(t.e.ini(), DOS_VISORES) << "a run leaves the file as it was";

    Banco pronto(DOS_VISORES, false);
    pronto.b->cargar();
    pronto.formulario.cerrar();
    pronto.e.cola.ejecutar();
    EXPECT_TRUE(pronto.e.fabrica.zocalos().empty()) << "closed before it was built";
}

}  // namespace
}  // namespace sorvanel
