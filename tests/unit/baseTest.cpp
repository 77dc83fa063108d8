#include <gtest/gtest.h>

#include "app/base.h"
#include "doubles/compartidoDoble.h"
#include "doubles/dialogoDoble.h"
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
    FabricaDialogosDoble dialogos;
    CompartidoDoble compartido;
    std::unique_ptr<base> b;

    explicit Banco(const std::string& ini, bool arrancar = true) {
        if (!ini.empty()) e.ini(ini);
        b = std::make_unique<base>(e.entorno, formulario, dialogos, compartido);
        if (arrancar) {
            b->cargar();
            e.cola.ejecutar();
        }
    }
    std::string visibles() {
        std::string lista;
        for (const auto& [id, nombre] : {std::pair{IdControl::botDise, "Dise "},
                                         {IdControl::botVisores, "Visores "},
                                         {IdControl::botSize, "Size "},
                                         {IdControl::botMensaje, "Mensaje "},
                                         {IdControl::botCfg, "Cfg "},
                                         {IdControl::botRun, "Run "},
                                         {IdControl::botPau, "Pau "},
                                         {IdControl::botOff, "Off "},
                                         {IdControl::botOk, "Ok "},
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
    t.compartido.arranca = false;
    bool corriaYa = false;
    t.e.avisos.alMostrar = [&](const std::string&) { corriaYa = t.e.fabrica.enPuerto(3002) != nullptr; };
    t.b->cargar();
    EXPECT_TRUE(t.e.avisos.textos.empty()) << "not from within the activation";
    t.e.cola.ejecutar();
    ASSERT_EQ(t.e.avisos.textos.size(), 1U);
    EXPECT_EQ(t.e.avisos.textos[0],
              "Visor #3: Ubicación no compatible con la retícula\nError en reconexión TCP/IP\n"
              "Port 1203 inadecuado. Posiblemente en uso");
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
    t.formulario.superficie(IdControl::picRep, 1)->olvidar();
    const int veces = t.formulario.veces;
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces + 1) << "the window may have been taken elsewhere meanwhile";
    t.e.monitores.lista.clear();
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces + 1) << "no monitor for a while: it stays";
    EXPECT_TRUE(t.formulario.superficie(IdControl::picRep, 1)->lineas().empty()) << "nothing is laid out anew";
    EXPECT_EQ(t.leyenda(1), "12");
}

// In configuration, with which tools open.
std::string abiertas(Banco& t) {
    std::string lista;
    if (t.dialogos.dialogo(IdControl::cfgContexto) != nullptr) lista += "contexto ";
    if (t.dialogos.dialogo(IdControl::cfgVisor) != nullptr) lista += "visor ";
    if (t.dialogos.dialogo(IdControl::cfgMensaje) != nullptr) lista += "mensaje ";
    if (t.formulario.asa(IdControl::imDrgXY)->visible) lista += "tamano ";
    return lista;
}

TEST(base, unaSolaHerramientaAbierta) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    struct Paso {
        IdControl boton;
        const char* abiertas;
    };
    const Paso pasos[] = {
        {IdControl::botDise, "contexto "},
        {IdControl::botDise, ""},
        {IdControl::botVisores, "visor "},
        {IdControl::botSize, "tamano "},
        {IdControl::botMensaje, "mensaje "},
        {IdControl::botDise, "contexto "},
        {IdControl::botSize, "tamano "},
        {IdControl::botSize, ""},
        {IdControl::botVisores, "visor "},
        {IdControl::botMensaje, "mensaje "},
        {IdControl::botVisores, "visor "},
        {IdControl::botDise, "contexto "},
        {IdControl::botOk, ""},
    };
    for (const Paso& paso : pasos) {
        ASSERT_TRUE(t.formulario.pulsar(paso.boton));
        ASSERT_EQ(abiertas(t), paso.abiertas) << static_cast<int>(paso.boton);
    }
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.e.ini(), DOS_VISORES) << "opening and closing changes nothing";
}

// The tool is seen before the displays behind it are made.
TEST(base, losVisoresVienenTrasSuHerramienta) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    const auto hechos = [&] { return t.formulario.superficie(IdControl::picRep, 2) != nullptr; };
    t.formulario.pulsar(IdControl::botVisores);
    EXPECT_FALSE(hechos());
    t.e.monitores.lista[0].area = {0, 0, 1920, 1080};
    t.formulario.quienOye->alCambiarMonitores();
    t.formulario.pulsar(IdControl::botVisores);
    t.e.cola.ejecutar();
    EXPECT_FALSE(hechos()) << "closed before";
    t.formulario.pulsar(IdControl::botVisores);
    t.e.cola.ejecutar();
    EXPECT_TRUE(hechos());
    EXPECT_TRUE(t.formulario.superficie(IdControl::picRep, 2)->visible());
    // What is made at once needs those before it.
    t.formulario.pulsar(IdControl::botVisores);
    t.formulario.pulsar(IdControl::botVisores);
    t.dialogos.dialogo(IdControl::cfgVisor)->boton(IdControl::botNvo)->pulsar();
    EXPECT_TRUE(hechos());
    EXPECT_NE(t.formulario.superficie(IdControl::picRep, 3), nullptr);
}

TEST(base, unaEntradaInvalidaImpideAceptarYCambiarDeHerramienta) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    t.formulario.pulsar(IdControl::botVisores);
    CajaTextoDoble* port = t.dialogos.dialogo(IdControl::cfgVisor)->caja(IdControl::txPort, 1);
    port->irA();
    port->reescribir("3002");
    t.formulario.pulsar(IdControl::botOk);
    EXPECT_EQ(abiertas(t), "visor ");
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    t.formulario.pulsar(IdControl::botDise);
    EXPECT_EQ(abiertas(t), "visor ");
    t.formulario.pulsar(IdControl::botCan);
    EXPECT_EQ(abiertas(t), "") << "cancelling never refuses";
    EXPECT_EQ(t.e.ini(), DOS_VISORES);
}

TEST(base, cancelarDevuelveCadaByteConCadaHerramientaAbierta) {
    for (const IdControl boton :
         {IdControl::botDise, IdControl::botVisores, IdControl::botSize, IdControl::botMensaje}) {
        Banco t(DOS_VISORES);
        t.formulario.pulsar(IdControl::botPau);
        t.formulario.pulsar(IdControl::botCfg);
        t.formulario.pulsar(boton);
        if (boton == IdControl::botDise) t.dialogos.dialogo(IdControl::cfgContexto)->imagen(IdControl::imRwP)->pulsar();
        if (boton == IdControl::botVisores) t.dialogos.dialogo(IdControl::cfgVisor)->boton(IdControl::botNvo)->pulsar();
        if (boton == IdControl::botSize) t.formulario.asa(IdControl::imDrgXY)->arrastrar(1500, 1500);
        if (boton == IdControl::botMensaje) {
            t.dialogos.dialogo(IdControl::cfgMensaje)->casilla(IdControl::ckUsar)->pulsar();
        }
        EXPECT_NE(t.e.ini(), DOS_VISORES) << "the change is in the file at once";
        t.formulario.pulsar(IdControl::botCan);
        t.e.reloj.avanzar(2000);
        t.e.perfil.ocio(true);
        EXPECT_EQ(t.e.ini(), DOS_VISORES);
        EXPECT_EQ(abiertas(t), "");
        EXPECT_EQ(t.formulario.superficie(IdControl::picRep, 1), nullptr);
        t.formulario.pulsar(IdControl::botOk);
        EXPECT_EQ(t.e.ini(), DOS_VISORES);
    }
}

TEST(base, cerrarMientrasSeConfiguraDejaElArchivoComoEsta) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    t.formulario.pulsar(IdControl::botDise);
    t.dialogos.dialogo(IdControl::cfgContexto)->imagen(IdControl::imRwP)->pulsar();
    t.formulario.cerrar();
    EXPECT_EQ(abiertas(t), "");
    EXPECT_EQ(t.e.valor("RETICULA", "FilasColumnas"), "3x1");
}

TEST(base, elMonitorElegidoMueveTodoEnseguida) {
    Banco t(DOS_VISORES, false);
    t.e.monitores.lista.push_back({{-1920, 0, 0, 1080}, {-1920, 0, 0, 1040}, false, "B", 15, 15});
    t.b->cargar();
    t.e.cola.ejecutar();
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    t.formulario.pulsar(IdControl::botDise);
    FormularioDialogoDoble* contexto = t.dialogos.dialogo(IdControl::cfgContexto);
    contexto->imagen(IdControl::imMoP)->pulsar();
    EXPECT_EQ(t.formulario.cubierto.area.left, -1920);
    EXPECT_EQ(contexto->centrado.area.left, -1920);
    EXPECT_EQ(t.formulario.boton(IdControl::botCan)->lugar.derecha(), 1920 * 15 - 60);
    EXPECT_EQ(t.e.valor("MONITORES", "EnUso"), "2");
    t.formulario.pulsar(IdControl::botCan);
    EXPECT_EQ(t.formulario.cubierto.area.left, 0) << "back where the restored file says";
}

TEST(base, laBandaDelMensajeVaConLaMarcha) {
    Banco t(std::string(DOS_VISORES) + "[MENSAJE]\r\nEnUso=S\xed\r\nTexto=Hola\r\nFont=Arial,20\r\n");
    SuperficieDoble* banda = t.formulario.superficie(IdControl::picMsg);
    EXPECT_TRUE(banda->visible());
    EXPECT_EQ(banda->lugar().abajo(), 736 * 15.0F) << "on the bar";
    t.e.reloj.avanzar(200);
    EXPECT_NE(std::find_if(
                  banda->lineas().begin(), banda->lineas().end(),
                  [](const std::string& l) { return l.find("Hola") != std::string::npos && l.find("imprimir") == 0; }),
              banda->lineas().end());
    t.formulario.pulsar(IdControl::botPau);
    banda->olvidar();
    t.e.reloj.avanzar(200);
    EXPECT_TRUE(banda->lineas().empty());
    t.formulario.pulsar(IdControl::botCfg);
    EXPECT_FALSE(banda->visible());
}

// There is no grid then, only what the file says of it.
TEST(base, conElMensajeAbiertoLaVentanaDejaVerSuFranja) {
    Banco t(
        "[RETICULA]\r\nPosicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\ncolorAplicacion=Transparente\r\n"
        "[VISOR_1]\r\nPort=3001\r\n");
    t.formulario.pulsar(IdControl::botPau);
    t.formulario.pulsar(IdControl::botCfg);
    t.formulario.pulsar(IdControl::botMensaje);
    const auto techo = [&] { return t.formulario.forma.back().top; };
    EXPECT_EQ(techo(), 736) << "the bar alone";
    t.dialogos.dialogo(IdControl::cfgMensaje)->casilla(IdControl::ckUsar)->pulsar();
    const SuperficieDoble* franja = t.formulario.superficie(IdControl::picMsg);
    EXPECT_NEAR(static_cast<float>(techo()), franja->lugar().y / 15, 0.5F);
    t.e.monitores.lista[0].area = {0, 0, 1920, 1080};
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(franja->lugar().ancho, 1920 * 15.0F);
    EXPECT_EQ(franja->lugar().abajo(), (1080 - 32) * 15.0F) << "on the bar, which has moved";
    EXPECT_NEAR(static_cast<float>(techo()), franja->lugar().y / 15, 0.5F);
}

TEST(base, cerrarDesmontaYNoVuelveAConstruir) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(IdControl::botOff);
    EXPECT_TRUE(t.e.fabrica.zocalos().empty());
    EXPECT_EQ(t.compartido.usuarios, 0);
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
