#include <tuple>

#include "unit/bancoBase.h"

namespace sorvanel {
namespace {

TEST(base, conVisoresArrancaSola) {
    Banco t(DOS_VISORES);
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    EXPECT_EQ(t.visibles(), "Pau Off ");
    EXPECT_EQ(t.formulario.cubierto.area, (RectPixel{0, 0, 1024, 768}));
    EXPECT_TRUE(t.e.reposo.impedido);
    EXPECT_TRUE(t.e.avisos.textos.empty());
    t.enviar(3002, "XNZ+00055000");
    EXPECT_EQ(t.leyenda(2), "55");
    EXPECT_EQ(t.formulario.superficie(Id::lbVer)->textoLeyenda(), "1.00A");
    EXPECT_EQ(textoVersion({12, 34, 26}), "12.34Z");
    t.formulario.quienOye->alActivar();
    EXPECT_EQ(t.e.cola.pendientes(), 0U) << "later activations do nothing";
}

TEST(base, sinVisoresAbreConfigurando) {
    Banco t("");
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    EXPECT_EQ(t.visibles(), "Dise Visores Size Mensaje Ok Can ");
    EXPECT_TRUE(t.e.archivos.existe(t.e.com.rutaCopia()));
    EXPECT_TRUE(t.formulario.pulsar(Id::botOk));
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.visibles(), "Cfg Run Off ");
}

TEST(base, pausaMarchaConfiguracionYVuelta) {
    Banco t(DOS_VISORES);
    t.enviar(3001, "XNZ+00012000");
    t.formulario.pulsar(Id::botPau);
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_FALSE(t.e.reposo.impedido || t.e.fabrica.enPuerto(3001) != nullptr);
    EXPECT_EQ(t.leyenda(1), "");
    t.formulario.pulsar(Id::botRun);
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    t.configurar();
    EXPECT_EQ(t.b->estado(), Estado::configurando);
    EXPECT_FALSE(t.puesto(1) || t.formulario.superficie(Id::picCap, 2)->visible()) << "torn down";
    t.formulario.pulsar(Id::botOk);
    EXPECT_EQ(t.b->estado(), Estado::pausa) << "running is not resumed by itself";
    EXPECT_TRUE(t.puesto(2));
}

TEST(base, losBotonesSeDisponenDesdeLaDerecha) {
    for (const int ancho : {640, 1024, 3840}) {
        Banco t(DOS_VISORES, false);
        t.e.monitores.lista[0].area = {0, 0, ancho, 768};
        t.cargar();
        float x = static_cast<float>(ancho * 15);
        for (const Id id : {Id::botOff, Id::botRun, Id::botCfg, Id::botMensaje}) {
            EXPECT_LE(t.formulario.boton(id)->lugar.derecha(), x - 60);
            x = t.formulario.boton(id)->lugar.x;
        }
        const auto lugar = [&](Id id) { return t.formulario.boton(id)->lugar; };
        EXPECT_TRUE(lugar(Id::botPau) == lugar(Id::botRun) && lugar(Id::botOk) == lugar(Id::botRun));
        EXPECT_EQ(lugar(Id::botCan), lugar(Id::botOff));
        EXPECT_EQ(t.formulario.boton(Id::botDise)->escrito.empty(), ancho == 640) << ancho;
    }
}

TEST(base, enMarchaElCursorQuedaEnLaBarra) {
    Banco t(DOS_VISORES, false);
    t.e.monitores.lista[0].area = {-1024, -100, 0, 668};  // the bar from 636 to 668
    t.cargar();
    const auto mover = [&](std::int32_t y, Puntero puntero) {
        t.e.cursor.punto = {-500, y};
        t.formulario.quienOye->alMoverRaton(ZonaRaton::representacion);
        EXPECT_EQ(t.e.cursor.punto.x, -500);
        EXPECT_EQ(t.formulario.ultimoPuntero, puntero);
        return t.e.cursor.punto.y;
    };
    for (const auto& [desde, hasta] : {std::pair(100, 636), {636, 636}, {660, 660}, {661, 660}})
        EXPECT_EQ(mover(desde, Puntero::marcha), hasta);
    t.formulario.quienOye->alMoverRaton(ZonaRaton::barra);
    EXPECT_EQ(t.formulario.ultimoPuntero, Puntero::normal);
    t.formulario.pulsar(Id::botPau);
    EXPECT_EQ(mover(100, Puntero::normal), 100) << "only while running";
}

TEST(base, unMonitorQueCambiaRedisponeSinPararNada) {
    Banco t(DOS_VISORES);
    t.enviar(3001, "XNZ+00012000");
    const auto enlaces = t.e.fabrica.zocalos();
    t.pantalla({0, 0, 1920, 1080});
    SuperficieDoble& peso = *t.formulario.superficie(Id::picRep, 1);
    EXPECT_EQ(t.formulario.cubierto.area, (RectPixel{0, 0, 1920, 1080}));
    EXPECT_EQ(peso.lugar().derecha(), (1920 - 4) * 15.0F);
    EXPECT_EQ(t.leyenda(1), "12");
    EXPECT_EQ(t.e.fabrica.zocalos(), enlaces) << "the links are the same";
    EXPECT_EQ(t.b->estado(), Estado::marcha);
    peso.olvidar();
    const int veces = t.formulario.veces;
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces + 1) << "the window may have been taken elsewhere meanwhile";
    t.e.monitores.lista = {Monitor{}};
    t.formulario.quienOye->alCambiarMonitores();
    t.e.monitores.lista.clear();
    t.formulario.quienOye->alCambiarMonitores();
    EXPECT_EQ(t.formulario.veces, veces + 1) << "no monitor for a while: it stays";
    EXPECT_TRUE(peso.lineas().empty()) << "nothing is laid out anew";
}

// In configuration, with which tools open.
std::string abiertas(Banco& t) {
    std::string lista;
    if (t.dialogos.dialogo(Id::cfgContexto) != nullptr) lista += "contexto ";
    if (t.dialogos.dialogo(Id::cfgVisor) != nullptr) lista += "visor ";
    if (t.dialogos.dialogo(Id::cfgMensaje) != nullptr) lista += "mensaje ";
    if (t.formulario.asa(Id::imDrgXY)->seVe) lista += "tamano ";
    return lista;
}

TEST(base, unaSolaHerramientaAbierta) {
    Banco t(DOS_VISORES);
    t.configurar();
    const std::pair<Id, const char*> pasos[] = {{Id::botDise, "contexto "},   {Id::botDise, ""},
                                                {Id::botVisores, "visor "},   {Id::botSize, "tamano "},
                                                {Id::botMensaje, "mensaje "}, {Id::botDise, "contexto "},
                                                {Id::botSize, "tamano "},     {Id::botSize, ""},
                                                {Id::botVisores, "visor "},   {Id::botMensaje, "mensaje "},
                                                {Id::botVisores, "visor "},   {Id::botOk, ""}};
    for (const auto& [boton, esperadas] : pasos) {
        ASSERT_TRUE(t.formulario.pulsar(boton));
        ASSERT_EQ(abiertas(t), esperadas) << static_cast<int>(boton);
    }
    EXPECT_EQ(t.b->estado(), Estado::pausa);
    EXPECT_EQ(t.e.ini(), DOS_VISORES) << "opening and closing changes nothing";
}

// What the bar says, which buttons look pressed, and what the empty screen says.
TEST(base, seDiceEnQueEstadoEstaYQueHacer) {
    const auto pasos = [](Banco& t, const std::vector<std::tuple<Id, const char*, Id, bool>>& lista) {
        for (const auto& [boton, dicho, hundido, primerPaso] : lista) {
            ASSERT_TRUE(boton == Id::picRep || t.formulario.pulsar(boton));
            const SuperficieDoble& rotulo = *t.formulario.superficie(Id::lbEstado);
            EXPECT_EQ(rotulo.textoLeyenda(), dicho) << numero(boton);
            EXPECT_EQ(rotulo.visible(), *dicho != '\0');
            for (const Id id : {Id::botDise, Id::botVisores, Id::botSize, Id::botMensaje})
                EXPECT_EQ(t.formulario.boton(id)->pinta == AspectoBoton::hundido, id == hundido) << numero(id);
            EXPECT_EQ(t.formulario.superficie(Id::picRep)->textoLeyenda().starts_with("Todavía no hay"), primerPaso);
        }
    };
    const char *configurando = "Configurando", *cancelado = "Cambios cancelados: acepte para volver";
    Banco t(DOS_VISORES);
    pasos(t, {{Id::picRep, "", Id::picRep, false},
              {Id::botPau, "En pausa", Id::picRep, false},
              {Id::botCfg, configurando, Id::picRep, false},
              {Id::botVisores, configurando, Id::botVisores, false},
              {Id::botSize, configurando, Id::botSize, false},
              {Id::botCan, cancelado, Id::picRep, false},
              {Id::botMensaje, configurando, Id::botMensaje, false},
              {Id::botMensaje, configurando, Id::picRep, false},
              {Id::botOk, "En pausa", Id::picRep, false},
              {Id::botRun, "", Id::picRep, false}});
    Banco nuevo("");
    pasos(nuevo, {{Id::picRep, configurando, Id::picRep, true},
                  {Id::botSize, configurando, Id::botSize, false},
                  {Id::botSize, configurando, Id::picRep, true},
                  {Id::botCan, cancelado, Id::picRep, true},
                  {Id::botVisores, configurando, Id::botVisores, false}});
    nuevo.dialogos.dialogo(Id::cfgVisor)->boton(Id::botNvo)->pulsar();
    pasos(nuevo, {{Id::botVisores, configurando, Id::picRep, false}, {Id::botOk, "En pausa", Id::picRep, false}});
}

TEST(base, enUnaBarraEstrechaLoDiceMasBreve) {
    FormularioDoble estrecho;
    BarraBotones barra(estrecho);
    barra.disponer(aTwips(560), aTwips(480));
    barra.avisar(Aviso::cancelado);
    EXPECT_NE(estrecho.superficie(Id::lbEstado)->lineas().back().find("\"Cancelado: acepte\""), std::string::npos);
}

TEST(base, laAyudaVaALoQueEstaAbierto) {
    Banco t(DOS_VISORES);
    const std::pair<Id, const char*> pasos[] = {
        {Id::picRep, "marcha"},      {Id::botPau, "pausa"},   {Id::botCfg, "configurar"}, {Id::botDise, "contexto"},
        {Id::botVisores, "visores"}, {Id::botSize, "tamano"}, {Id::botMensaje, "mensaje"}};
    for (const auto& [boton, apartado] : pasos) {
        t.formulario.pulsar(boton);
        t.e.programa.manuales.clear();
        t.formulario.quienOye->alPedirAyuda();
        EXPECT_TRUE(t.e.programa.manuales.empty()) << "not from within the key";
        t.e.cola.ejecutar();
        EXPECT_EQ(t.e.programa.manuales, std::vector<std::string>{apartado});
    }
    EXPECT_TRUE(t.e.avisos.informaciones.empty());
    t.e.programa.hayManual = false;
    t.formulario.quienOye->alPedirAyuda();
    t.e.cola.ejecutar();
    EXPECT_EQ(t.e.avisos.informaciones.size(), 1U);
}

// The tool is seen before the displays behind it are made.
TEST(base, losVisoresVienenTrasSuHerramienta) {
    Banco t(DOS_VISORES);
    t.configurar();
    t.formulario.pulsar(Id::botVisores);
    EXPECT_FALSE(t.puesto(2));
    t.pantalla({0, 0, 1920, 1080});
    t.formulario.pulsar(Id::botVisores);
    t.e.cola.ejecutar();
    EXPECT_FALSE(t.puesto(2)) << "closed before";
    t.formulario.pulsar(Id::botVisores);
    t.e.cola.ejecutar();
    EXPECT_TRUE(t.puesto(2));
}

TEST(base, unaReconstruccionPreguntaCadaCosaUnaVez) {
    Banco t(std::string(DOS_VISORES) + "[MENSAJE]\r\nEnUso=Sí\r\n");
    t.formulario.pulsar(Id::botPau);
    for (const Id herramienta : {Id::botDise, Id::botVisores, Id::botSize, Id::botMensaje}) {
        t.formulario.pulsar(Id::botCfg);
        t.formulario.pulsar(herramienta);
        SuperficieDoble& fondo = *t.formulario.superficie(Id::picRep);
        fondo.olvidar();
        t.e.monitores.veces = t.e.programa.carpetas = t.e.archivos.sellos = 0;
        t.formulario.pulsar(Id::botOk);
        EXPECT_EQ(t.e.monitores.veces, 1) << static_cast<int>(herramienta);
        EXPECT_EQ(t.e.programa.carpetas, 0);
        EXPECT_EQ(t.e.archivos.sellos, 1);
        const auto lineas = fondo.lineas();
        EXPECT_EQ(std::count(lineas.begin(), lineas.end(), "limpiar #FFFFFF"), 2) << "dismantled once, built once";
    }
}

TEST(base, unaEntradaInvalidaImpideAceptarYCambiarDeHerramienta) {
    Banco t(DOS_VISORES);
    t.configurar();
    t.formulario.pulsar(Id::botVisores);
    t.dialogos.dialogo(Id::cfgVisor)->caja(Id::txPort, 1)->reescribir("3002");
    for (const Id boton : {Id::botOk, Id::botDise}) {
        t.formulario.pulsar(boton);
        EXPECT_EQ(abiertas(t), "visor ");
        EXPECT_EQ(t.b->estado(), Estado::configurando);
    }
    t.formulario.pulsar(Id::botCan);
    EXPECT_EQ(abiertas(t), "") << "cancelling never refuses";
    EXPECT_EQ(t.e.ini(), DOS_VISORES);
}

TEST(base, cancelarDevuelveCadaByteYCerrarDejaElCambioConCadaHerramientaAbierta) {
    const std::pair<Id, std::function<void(Banco&)>> casos[] = {
        {Id::botDise,
         [](Banco& t) {
             t.dialogos.dialogo(Id::cfgContexto)->boton(Id::imMoP)->pulsar();
             EXPECT_EQ(t.formulario.cubierto.area.left, -1920);
         }},
        {Id::botVisores, [](Banco& t) { t.dialogos.dialogo(Id::cfgVisor)->boton(Id::botNvo)->pulsar(); }},
        {Id::botSize, [](Banco& t) { t.formulario.asa(Id::imDrgXY)->arrastrar(1500, 1500); }},
        {Id::botMensaje, [](Banco& t) { t.dialogos.dialogo(Id::cfgMensaje)->casilla(Id::ckUsar)->pulsar(); }}};
    for (const auto& [boton, cambiar] : casos) {
        for (const bool cancelar : {true, false}) {
            SCOPED_TRACE(std::to_string(static_cast<int>(boton)) + (cancelar ? " cancel" : " end"));
            Banco t(DOS_VISORES, false);
            t.e.monitores.lista.push_back({{-1920, 0, 0, 1080}, {-1920, 0, 0, 1040}, false, "B", 15, 15});
            t.cargar();
            t.configurar();
            t.formulario.pulsar(boton);
            cambiar(t);
            const std::string cambiado = t.e.ini();
            EXPECT_NE(cambiado, DOS_VISORES) << "the change is in the file at once";
            if (cancelar)
                t.formulario.pulsar(Id::botCan);
            else
                t.formulario.cerrar();
            t.e.reloj.avanzar(2000);
            t.e.perfil.ocio(true);
            EXPECT_EQ(abiertas(t), "");
            EXPECT_FALSE(t.puesto(1));
            EXPECT_EQ(t.e.ini(), cancelar ? DOS_VISORES : cambiado);
            if (!cancelar) continue;
            EXPECT_EQ(t.formulario.cubierto.area.left, 0) << "where the restored file says";
            t.formulario.pulsar(Id::botOk);
            EXPECT_EQ(t.e.ini(), DOS_VISORES);
        }
    }
}

TEST(base, conElMensajeAbiertoLaVentanaDejaVerSuFranja) {
    Banco t(
        "[RETICULA]\r\nPosicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\ncolorAplicacion=Transparente\r\n"
        "[VISOR_1]\r\nPort=3001\r\n");
    t.configurar();
    t.formulario.pulsar(Id::botMensaje);
    const auto techo = [&] { return static_cast<float>(t.formulario.forma.back().top); };
    EXPECT_EQ(techo(), 736) << "the bar alone";
    t.dialogos.dialogo(Id::cfgMensaje)->casilla(Id::ckUsar)->pulsar();
    const SuperficieDoble* franja = t.formulario.superficie(Id::picMsg);
    EXPECT_NEAR(techo(), franja->lugar().y / 15, 0.5F);
    t.pantalla({0, 0, 1920, 1080});
    EXPECT_EQ(franja->lugar().ancho, 1920 * 15.0F);
    EXPECT_EQ(franja->lugar().abajo(), (1080 - 32) * 15.0F) << "on the bar, which has moved";
    EXPECT_NEAR(techo(), franja->lugar().y / 15, 0.5F);
}

TEST(base, cerrarDesmontaYNoVuelveAConstruir) {
    Banco t(DOS_VISORES);
    t.formulario.pulsar(Id::botOff);
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
