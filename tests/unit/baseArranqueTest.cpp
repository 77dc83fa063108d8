#include "app/reinicios.h"
#include "unit/bancoBase.h"

namespace sorvanel {
namespace {

// What happens where the settings, the ports or the screen are not to be had.

TEST(base, unaCopiaQueFallaDejaElEstadoComoEsta) {
    Banco t(DOS_VISORES);
    t.e.archivos.fallarEscritura = true;
    t.configurar();
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.e.avisos.textos, std::vector<std::string>{"Error al hacer copia de configuración"});
    t.e.archivos.rutaIlegible = t.e.rutaINI();
    t.e.archivos.poner(t.e.rutaINI(), "");
    t.formulario.pulsar(Id::botCfg);
    EXPECT_NE(t.e.avisos.textos.back().find("(retenido)"), std::string::npos) << "and why, where that is known";
    EXPECT_TRUE(t.puesto(1));
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
              "Visor #3: Ubicación no compatible con la retícula\n"
              "Visor #1 (Tolva): Error en reconexión TCP/IP\nVisor #4: Port 1203 inadecuado. Posiblemente en uso");
    EXPECT_TRUE(corriaYa) << "a box that nobody answers must not hold up the others";
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    EXPECT_NE(t.e.ini().find("Protocolo=Pavona"), std::string::npos);
}

TEST(base, loQueNoCabiaCorreEnCuantoCabe) {
    for (const bool sinMonitor : {true, false}) {
        Banco t(DOS_VISORES, false);
        const auto suya = t.e.monitores.lista;
        if (sinMonitor)
            t.e.monitores.lista.clear();
        else
            t.e.monitores.lista[0].area = {0, 0, 120, 60};
        t.cargar();
        EXPECT_EQ(t.e.fabrica.enPuerto(3001), nullptr);
        t.e.monitores.lista = suya;
        t.pantalla({0, 0, 1920, 1080});
        ASSERT_NE(t.e.fabrica.enPuerto(3001), nullptr) << sinMonitor;
        t.enviar(3001, "XNZ+00012000");
        EXPECT_EQ(t.leyenda(1), "12");
    }
}

TEST(base, unArchivoIlegibleAlArrancarSeEsperaLoQueHagaFalta) {
    Banco t(DOS_VISORES, false);
    const comun& com = t.e.com;
    t.e.archivos.rutaIlegible = t.e.rutaINI();
    t.e.perfil.descartar(t.e.rutaINI());
    t.e.archivos.poner(com.rutaCopia(), DOS_VISORES);
    t.cargar();
    const auto pasar = [&](int segundos) {
        for (int i = 0; i < 4 * segundos; ++i) {
            t.e.reloj.avanzar(250);
            t.e.cola.ejecutar();
        }
    };
    pasar(300);
    SuperficieDoble& fondo = *t.formulario.superficie(Id::picRep);
    EXPECT_EQ(t.b->estado(), Estado::iniciando);
    EXPECT_EQ(fondo.textoLeyenda(), "No se puede leer la configuración: " + t.e.rutaINI() + " (retenido)");
    EXPECT_EQ(t.e.archivos.contenido(com.rutaCopia()), DOS_VISORES) << "the copy is left alone";
    t.pantalla({0, 0, 1920, 1080});
    EXPECT_EQ(t.formulario.cubierto.area.right, 1920) << "the screen may change meanwhile";
    EXPECT_NE(fondo.textoLeyenda(), "");
    t.e.archivos.rutaIlegible.clear();
    pasar(1);
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    EXPECT_EQ(fondo.textoLeyenda(), "");
    EXPECT_EQ(t.e.ini(), DOS_VISORES);
}

// At an unattended start nobody is there to try again.
TEST(base, loQueFallaAMediasDelArranqueSeReintenta) {
    int fallidos = 0;
    for (int n = 1; n <= 20; ++n) {
        Banco t(DOS_VISORES, false);
        t.b->cargar();
        t.formulario.superficie(Id::picRep)->fallarEn(n);
        try {
            t.e.cola.ejecutar();
        } catch (const std::exception&) {
            ++fallidos;
            EXPECT_NE(t.b->estado(), Estado::marcha);
        }
        t.formulario.superficie(Id::picRep)->fallarEn(0);
        t.e.reloj.avanzar(250);
        t.e.cola.ejecutar();
        EXPECT_EQ(t.b->estado(), Estado::marcha) << n;
        EXPECT_TRUE(t.puesto(1) && t.puesto(2));
        t.enviar(3002, "XNZ+00055000");
        EXPECT_EQ(t.leyenda(2), "55");
    }
    EXPECT_GT(fallidos, 3);
}

TEST(base, unArchivoIlegibleMasTardeNoCambiaNada) {
    Banco t(DOS_VISORES);
    t.e.archivos.rutaIlegible = t.e.rutaINI();
    t.configurar();
    EXPECT_EQ(t.b->estado(), Estado::pausa) << "there is nothing that a cancel could put back";
    t.e.archivos.rutaIlegible.clear();
    t.formulario.pulsar(Id::botCfg);
    t.formulario.pulsar(Id::botVisores);
    t.e.cola.ejecutar();
    t.e.archivos.rutaIlegible = t.e.rutaINI();
    t.dialogos.dialogo(Id::cfgVisor)->boton(Id::botNvo)->pulsar();
    t.formulario.pulsar(Id::botCan);
    t.e.archivos.rutaIlegible.clear();
    t.e.reloj.avanzar(10'000);
    t.formulario.pulsar(Id::botOk);
    EXPECT_TRUE(t.puesto(1) && t.puesto(2));
    EXPECT_EQ(t.e.ini(), DOS_VISORES);
}

TEST(base, cancelarSinCopiaDeEstaSesionNoTraeLaDeOtra) {
    Banco t("[VISORES]\r\nanchoEtiqueta=3\r\n", false);
    const comun& com = t.e.com;
    t.e.archivos.poner(com.rutaCopia(), DOS_VISORES);
    t.e.archivos.rutaQueFalla = com.rutaAnterior();
    t.cargar();
    ASSERT_EQ(t.b->estado(), Estado::configurando);
    t.e.valor("VISORES", "anchoEtiqueta", "5");
    t.formulario.pulsar(Id::botCan);
    EXPECT_EQ(t.e.ini(), "[VISORES]\r\nanchoEtiqueta=3\r\n");
    EXPECT_EQ(t.e.archivos.contenido(com.rutaCopia()), DOS_VISORES);
}

TEST(base, unPortOcupadoSeReintentaCadaDiezSegundos) {
    Banco t(DOS_VISORES, false);
    t.e.fabrica.red().ocupados = {3001};
    t.e.avisos.alMostrar = [&](const std::string&) {
        EXPECT_EQ(t.leyenda(1), "sin datos") << "no data meanwhile";
        t.e.reloj.avanzar(59'999);
        EXPECT_EQ(t.e.avisos.cerrados, 0);
        t.e.reloj.avanzar(1);
        EXPECT_EQ(t.e.avisos.cerrados, 1) << "nobody came";
    };
    t.cargar();
    ASSERT_EQ(t.e.avisos.textos.size(), 1U);
    EXPECT_EQ(t.formulario.superficie(Id::picRep, 1)->textoLeyenda(),
              "Tolva: sin datos. Port 3001 en uso por otro programa");
    t.e.reloj.avanzar(60'000);
    EXPECT_EQ(t.e.avisos.cerrados, 1) << "it is no box of ours that is open now";
    const SuperficieDoble& version = *t.formulario.superficie(Id::lbVer);
    EXPECT_EQ(version.textoSugerencia(), "Visor #1 (Tolva): Error en reconexión TCP/IP");
    t.e.fabrica.red().ocupados.clear();
    t.e.reloj.avanzar(10'000);
    ASSERT_NE(t.e.fabrica.enPuerto(3001), nullptr);
    t.enviar(3001, "XNZ+00012000");
    EXPECT_EQ(t.leyenda(1), "12");
    EXPECT_EQ(t.e.avisos.textos.size(), 1U) << "tried again in silence";
    t.formulario.pulsar(Id::botPau);
    t.e.reloj.avanzar(20'000);
    EXPECT_EQ(t.e.fabrica.enPuerto(3001), nullptr) << "only while running";
    t.formulario.pulsar(Id::botRun);
    EXPECT_EQ(version.textoSugerencia(), "");
}

// What sockets kept while it slept is old, and so is what stood on the screen.
TEST(base, trasDormirNoHayPesoHastaQueLlegaUnoNuevo) {
    Banco t(DOS_VISORES);
    t.enviar(3001, "XNZ+00012000");
    ASSERT_EQ(t.leyenda(1), "12");
    t.formulario.quienOye->alDormir(true);
    EXPECT_EQ(t.leyenda(1), "");
    EXPECT_EQ(t.e.fabrica.enPuerto(3001), nullptr) << "nothing is received any more";
    for (int vez = 0; vez < 2; ++vez) {
        t.formulario.quienOye->alDormir(false);
        t.e.cola.ejecutar();
        EXPECT_EQ(t.leyenda(1), "sin datos") << "the system may say it twice";
    }
    t.enviar(3001, "XNZ+00012000");
    EXPECT_EQ(t.leyenda(1), "12");
    t.formulario.pulsar(Id::botPau);
    t.formulario.quienOye->alDormir(false);
    t.e.cola.ejecutar();
    EXPECT_EQ(t.e.fabrica.enPuerto(3001), nullptr) << "a pause stays one";
}

TEST(base, elSistemaLaReiniciaTresVecesEnDiezMinutosComoMucho) {
    const struct {
        const char* argumentos;
        bool reiniciado;
        std::int64_t espera;
        const char* siguientes;
    } casos[] = {
        {"", false, 0, "/reinicios:"},
        {"/reinicios:", true, 0, "/reinicios:1000"},
        {"/reinicios:900", true, 0, "/reinicios:900,1000"},
        {"/reinicios:500,900", true, 100, "/reinicios:500,900,1000"},
        {"/reinicios:300,500,900", true, 100, "/reinicios:500,900,1000"},
        {"/reinicios:401,500,900", true, 100, "/reinicios:401,500,900,1000"},
        {"/reinicios:400,500", true, 0, "/reinicios:500,1000"},
        {"/reinicios:5000,900", true, 0, "/reinicios:900,1000"},
        {"/reinicios:x,1", true, 0, "/reinicios:1000"},
    };
    for (const auto& c : casos) {
        const Reinicios r(c.argumentos, 1000);
        EXPECT_EQ(r.reiniciado(), c.reiniciado) << c.argumentos;
        EXPECT_EQ(r.espera(), c.espera) << c.argumentos;
        EXPECT_EQ(r.argumentos(), c.siguientes) << c.argumentos;
    }
}

TEST(base, trasLaPausaNingunVisorQuedaSinSuPort) {
    Banco t(
        "[RETICULA]\r\nFilasColumnas=2x1\r\n[VISOR_1]\r\nPort=49152\r\nUbicacion=1,1\r\n"
        "[VISOR_2]\r\nPort=3002\r\nUbicacion=2,1\r\n");
    t.formulario.pulsar(Id::botPau);
    ASSERT_NE(t.e.fabrica.enPuerto(49152), nullptr);
    t.formulario.pulsar(Id::botRun);
    ASSERT_TRUE(t.e.avisos.textos.empty());
    t.enviar(49152, "XNZ+00012000");
    EXPECT_EQ(t.leyenda(1), "12");
}

}  // namespace
}  // namespace sorvanel
