#include "message/clsMsg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "doubles/entornoDoble.h"
#include "doubles/tiraDoble.h"
#include "message/tramosTexto.h"

namespace sorvanel {
namespace {

using Textos = std::vector<std::string>;

constexpr float ANCHO = 6000;  // twips of the strip
constexpr float EM = 10 * 20;  // of the font that most tests use, twips

class FranjaDoble : public TiraDoble {
public:
    float desplazado = 0;

    void desplazar(float twips) override {
        desplazado += twips;
        TiraDoble::desplazar(twips);
    }
    std::size_t cuantas(const std::string& principio) const {
        return static_cast<std::size_t>(std::count_if(lineas().begin(), lineas().end(),
                                                      [&](const std::string& l) { return l.starts_with(principio); }));
    }
    // The first tick after it was empty: four pixels of text.
    bool entra() const { return puntos[395].size() < 3 && puntos[396].find("0/") != std::string::npos; }
};

class MuelleDoble : public MuelleMensaje {
public:
    FranjaDoble franja;
    std::vector<bool> visibles;

    Superficie& picMsg() override { return franja; }
    void acoplar(float alto) override { franja.colocar({0, 9000 - alto, ANCHO, alto}); }
    void alMostrarFranja(bool visible) override { visibles.push_back(visible); }
};

struct Banco {
    EntornoDoble e;
    MuelleDoble muelle;
    std::unique_ptr<clsMsg> msg;

    explicit Banco(const std::string& texto = "abc", const std::string& velocidad = "4") {
        e.ini("\xEF\xBB\xBF[MENSAJE]\r\nEnUso=Sí\r\nTexto=" + texto + "\r\nFont=Arial,10\r\nVelocidad=" + velocidad +
              "\r\n");
        hacer();
    }
    void hacer() { msg = std::make_unique<clsMsg>(e.com, e.programa, e.fabrica, e.reloj, muelle); }
    FranjaDoble& franja() { return muelle.franja; }
    TemporizadorDoble& tim() { return *e.fabrica.ultimoTemporizador(); }
    std::string guardado(const char* clave) { return e.valor("MENSAJE", clave); }
    void olvidar() {
        franja().olvidar();
        franja().desplazado = 0;
    }
    void marcha() {
        msg->marcha();
        olvidar();
    }
};

AjustesMensaje leido(const std::string& linea) {
    EntornoDoble e;
    e.ini("\xEF\xBB\xBF[MENSAJE]\r\n" + linea + "\r\n");
    return leerMensaje(e.com);
}

TEST(AjustesMensaje, cadaParteQueFaltaVienePorOmision) {
    EXPECT_EQ(leido("Texto=hola, mundo").texto, "hola, mundo");
    for (const std::string si : {"Sí", "SÍ", "si", "YES", "True", "verdadero", "1", "-1"})
        EXPECT_TRUE(leido("EnUso=" + si).enUso) << si;
    for (const char* no : {"", "EnUso=No", "EnUso=2"}) EXPECT_FALSE(leido(no).enUso) << no;
    const std::pair<const char*, FuenteMensaje> fuentes[] = {
        {"", {"Arial", 64, false, false, false}},
        {"Verdana", {"Verdana", 64, false, false, false}},
        {"Verdana,12.5,xIx", {"Verdana", 12.5F, false, true, false}},
        {"Verdana,grande,UB", {"Verdana", 64, true, false, true}},
        {"Verdana,-3,biu", {"Verdana", 64, false, false, false}},
        {",12,B", {"Arial", 12, true, false, false}}};
    for (const auto& [texto, fuente] : fuentes) EXPECT_EQ(leido(std::string("Font=") + texto).fuente, fuente) << texto;
    const std::tuple<const char*, Color, Color> colores[] = {{"", NEGRO, BLANCO},
                                                             {"0000FF", ROJO, BLANCO},
                                                             {",0000ff", NEGRO, ROJO},
                                                             {"FF0000,", rgb(0, 0, 255), BLANCO},
                                                             {"rojo,zzz", NEGRO, BLANCO},
                                                             {"7F0000FF,112233,445566", ROJO, 0x112233},
                                                             {" 0000FF ,\tFF0000", ROJO, rgb(0, 0, 255)}};
    for (const auto& [texto, fondo, letra] : colores) {
        const AjustesMensaje a = leido(std::string("Color=") + texto);
        EXPECT_EQ(std::pair(a.colorFondo, a.colorTexto), std::pair(fondo, letra)) << texto;
    }
    const std::pair<const char*, std::int32_t> velocidades[] = {
        {"4.9", 4}, {"-2.9", -2}, {"rápida", AjustesMensaje().velocidad}, {"5000", 5000}, {"1e300", 2147483647}};
    for (const auto& [texto, velocidad] : velocidades)
        EXPECT_EQ(leido(std::string("Velocidad=") + texto).velocidad, velocidad) << texto;
}

TEST(clsMsg, cadaCambioSeGuardaAlMomento) {
    Banco b;
    b.msg->enUso(false);
    EXPECT_EQ(b.guardado("EnUso") + b.guardado("Font") + b.guardado("Color"), "NoArial,10,xxx000000,FFFFFF");
    b.msg->enUso(true);
    EXPECT_EQ(b.guardado("EnUso"), "Sí");
    b.msg->texto(" Báscula 2 ");
    b.msg->colorFondo(0x01FF0000);
    EXPECT_EQ(b.msg->colorFondo(), 0xFF0000) << "a colour has 24 bits";
    b.msg->colorTexto(rgb(1, 2, 171));
    EXPECT_EQ(b.guardado("Color"), "FF0000,AB0201");
    b.msg->velocidad(7);
    EXPECT_TRUE(b.msg->letFont({"Courier New", 12.5F, true, false, true}));
    EXPECT_EQ(b.guardado("Font"), "Courier New,12.5,BxU");
    b.hacer();
    EXPECT_EQ(b.msg->texto(), " Báscula 2 ");
    EXPECT_EQ(b.msg->getFont(), (FuenteMensaje{"Courier New", 12.5F, true, false, true}));
    EXPECT_EQ(b.msg->velocidad(), 7);
}

TEST(clsMsg, laFranjaSeAcoplaALaAlturaDeLaLetraYSeVeMientrasEstaEnUso) {
    Banco b;
    EXPECT_EQ(b.franja().lugar().alto, EM * 1.2F + 15);
    EXPECT_TRUE(b.franja().visible());
    EXPECT_EQ(b.franja().textoLeyenda(), "abc");
    ASSERT_TRUE(b.msg->letFont({"Arial", 20, false, true, false}));
    EXPECT_EQ(b.franja().lugar().alto, EM * 2 * 1.2F + 15);
    EXPECT_EQ(b.franja().fuente(), (Fuente{"Arial", EM * 2, false, true, false}));
    b.msg->marcha();
    b.msg->enUso(false);
    EXPECT_FALSE(b.franja().visible() || b.tim().habilitado() || b.msg->enMarcha());
    b.msg->enUso(true);
    b.msg.reset();
    EXPECT_FALSE(b.franja().visible());
    EXPECT_EQ(b.muelle.visibles, (std::vector<bool>{true, false, true, false}));
}

TEST(clsMsg, laLetraQueNoSePuedePonerNoCambiaNada) {
    const float noEsNumero = std::numeric_limits<float>::quiet_NaN();
    const std::tuple<const char*, float, bool> casos[] = {
        {"", 20, false},       {"Arial,Black", 20, false},   {"Arial", 3.9F, false},
        {"Arial", 401, false}, {"Arial", noEsNumero, false}, {"Verdana", 20, true}};
    for (const auto& [nombre, puntos, sinFuentes] : casos) {
        Banco b;
        b.marcha();
        const std::string antes = b.e.ini();
        const Fuente puesta = b.franja().fuente();
        const Rectangulo lugar = b.franja().lugar();
        b.franja().sinFuentes(sinFuentes);
        EXPECT_FALSE(b.msg->letFont({nombre, puntos, false, false, false}));
        EXPECT_EQ(b.msg->getFont(), (FuenteMensaje{"Arial", 10, false, false, false}));
        EXPECT_TRUE(b.franja().fuente() == puesta && b.franja().lugar() == lugar && b.e.ini() == antes) << nombre;
        EXPECT_EQ(b.franja().cuantas("limpiar"), 0U) << "it goes on where it was";
    }
}

TEST(clsMsg, quietoSeImprimeEnElBordeIzquierdo) {
    Banco b("hola a todos", "-3");
    b.marcha();
    b.msg->marcha();
    EXPECT_EQ(b.franja().lineas(), (Textos{"colorFondo #000000", "limpiar #000000", "imprimir 0 0 \"hola \" #FFFFFF",
                                           "imprimir 450 0 \"a \" #FFFFFF", "imprimir 620 0 \"todos\" #FFFFFF"}));
    Banco largo(std::string(10'000, 'n'), "0");
    largo.marcha();
    largo.msg->colorTexto(ROJO);
    EXPECT_LE(largo.franja().cuantas("imprimir"), 4U) << "nothing beyond the right edge";
}

// Whatever the scale of the monitor, however late the ticks come, and however long the text: what a tick costs does not
// grow with it.
TEST(clsMsg, avanzaPorElRelojEnPixelesEnteros) {
    const std::pair<float, const char*> casos[] = {
        {15.0F, "n"}, {12.0F, "n "}, {10.0F, "    "}, {60.0F / 7, "\U0001F1EA\U0001F1F8"}, {7.5F, "n"}};
    for (const auto& [pixel, palabra] : casos) {
        std::string texto;
        while (texto.size() < 10'000) texto += palabra;
        Banco b("", "3");
        b.msg->texto(texto);
        b.franja().pixel(pixel);
        b.marcha();
        std::int64_t pasado = 0;
        float avanzado = 0;
        for (int i = 0; i < 2600; ++i) {
            b.olvidar();
            const std::int64_t tarde = 10 + i * 7 % 13;
            b.e.reloj.saltar(tarde);
            pasado += tarde;
            b.tim().disparar();
            if (b.franja().cuantas("limpiar") != 0) break;  // it begins anew
            const float pixeles = b.franja().desplazado / pixel;
            ASSERT_NEAR(pixeles, std::round(pixeles), 0.02) << "whole pixels, tick " << i;
            avanzado += b.franja().desplazado;
            const float debido = static_cast<float>(pasado) * 4.5F;
            ASSERT_NEAR(avanzado, debido, pixel + debido * 1e-5F) << "tick " << i << ", pixel " << pixel;
            ASSERT_EQ(b.franja().cuantas("imprimir "), 0U) << "only through the zone that came free";
            ASSERT_LE(b.franja().lineas().size(), 12U) << palabra;
        }
        EXPECT_GT(pasado, 35'000) << palabra;
    }
}

TEST(clsMsg, unTicTardioSeRecuperaSinSaltosYUnaParadaLargaSeOlvida) {
    Banco b(std::string(500, 'n'));
    b.marcha();
    b.e.reloj.avanzar(10);
    EXPECT_EQ(b.franja().desplazado, 60);
    b.e.reloj.saltar(90);
    b.tim().disparar();
    EXPECT_EQ(b.franja().desplazado, 60 + 180) << "three steps at most";
    b.e.reloj.avanzar(50);
    EXPECT_EQ(b.franja().desplazado, 15 * 60) << "made up for";
    b.e.reloj.saltar(60'000);
    b.tim().disparar();
    EXPECT_EQ(b.franja().desplazado, 16 * 60) << "what was missed is missed";
    b.e.reloj.avanzar(100);
    EXPECT_EQ(b.franja().desplazado, 26 * 60);
}

// As far as it has come in; and once it has passed it begins anew.
TEST(clsMsg, laFranjaMuestraElTextoQuePasaYNadaMas) {
    Banco b("É así: " + std::string(60, 'W') + " e\u0301 \U0001F1EA\U0001F1F8 fin");
    TiraDoble entera;
    entera.colorFondo(NEGRO);
    entera.limpiar();
    entera.fuente(b.franja().fuente());
    entera.imprimir(ANCHO, 0, b.msg->texto(), BLANCO);
    const auto fin = ANCHO + entera.medir(b.msg->texto()).ancho;
    b.marcha();
    for (float pasado = 60; pasado <= fin; pasado += 60) {
        b.e.reloj.avanzar(10);
        entera.desplazar(60);
        for (std::size_t p = 0; p < 400; ++p) ASSERT_EQ(b.franja().puntos[p], entera.puntos[p]) << pasado << ' ' << p;
    }
    ASSERT_EQ(b.franja().cuantas("limpiar"), 0U);
    b.e.reloj.avanzar(20);
    EXPECT_TRUE(b.franja().entra());
}

// What each order paints, at once and with the next tick. All begin by clearing the strip, "L", with its ground.
TEST(clsMsg, cadaCambioSeVeAlMomento) {
    const std::string puesta = "fuente Arial 200|colocar 0 8745 6000 255|L", en = "imprimirEn 0 0 6000 255: ";
    const struct {
        int velocidad, antes;  // running for so many milliseconds; stopped: -1
        void (*orden)(clsMsg&);
        std::string pinta;
        const char* luego = "";  // it scrolls
    } casos[] = {
        {0, 0, [](clsMsg& m) { m.texto("otro"); }, "leyenda \"otro\"|L|imprimir 0 0 \"otro\" #FFFFFF"},
        {0, 0, [](clsMsg& m) { m.texto(""); }, "leyenda \"\"|L"},
        {0, 0, [](clsMsg& m) { m.colorTexto(ROJO); }, "L|imprimir 0 0 \"abc\" #FF0000"},
        {0, 0, [](clsMsg& m) { m.colorFondo(BLANCO); },
         "colorFondo #FFFFFF|limpiar #FFFFFF|imprimir 0 0 \"abc\" #FFFFFF"},
        {0, 0, [](clsMsg& m) { m.velocidad(0); }, ""},
        {0, 0, [](clsMsg& m) { m.velocidad(4); }, "L", "desplazar 60"},
        {0, 0, [](clsMsg& m) { m.redisponer(); }, puesta + "|imprimir 0 0 \"abc\" #FFFFFF"},
        {0, 0,
         [](clsMsg& m) {
             m.letFont({"Arial", 20, false, false, false});
         },
         "fuente Arial 400|colocar 0 8505 6000 495|L|imprimir 0 0 \"abc\" #FFFFFF"},
        // What scrolls goes on from where it is, so that whoever types sees it.
        {4, 400, [](clsMsg& m) { m.texto("abc d"); },
         "leyenda \"abc d\"|L|" + en + "3600 0 \"abc \" #FFFFFF|" + en + "4010 0 \"d\" #FFFFFF", "desplazar 60"},
        {4, 400, [](clsMsg& m) { m.colorTexto(ROJO); }, "L|" + en + "3600 0 \"abc\" #FF0000", "desplazar 60"},
        {4, 400, [](clsMsg& m) { m.texto(""); }, "leyenda \"\"|L"},
        {4, 400, [](clsMsg& m) { m.velocidad(8); }, "", "desplazar 120"},
        {4, 400, [](clsMsg& m) { m.velocidad(-8); }, "L|imprimir 0 0 \"abc\" #FFFFFF"},
        {4, 400, [](clsMsg& m) { m.redisponer(); }, puesta, "desplazar 60"},
        {4, 400, [](clsMsg& m) { m.paro(); }, "limpiar #000000"},
        // Stopped, it shows nothing; started again, it comes in from the right edge.
        {4, -1, [](clsMsg& m) { m.colorTexto(ROJO); }, "L"},
        {0, -1, [](clsMsg& m) { m.velocidad(4); }, ""},
        {4, -1, [](clsMsg& m) { m.marcha(); }, "L", "desplazar 60"}};
    for (const auto& caso : casos) {
        SCOPED_TRACE(&caso - casos);
        Banco b("abc", std::to_string(caso.velocidad));
        b.marcha();
        b.e.reloj.avanzar(std::max(caso.antes, 0));
        if (caso.antes < 0) b.msg->paro();
        b.olvidar();
        caso.orden(*b.msg);
        std::string pintado;
        for (const std::string& linea : b.franja().lineas()) pintado += (pintado.empty() ? "" : "|") + linea;
        const std::string limpia = "colorFondo #000000|limpiar #000000";
        if (const auto lugar = pintado.find(limpia); lugar != std::string::npos)
            pintado.replace(lugar, limpia.size(), "L");
        EXPECT_EQ(pintado, caso.pinta);
        b.olvidar();
        b.e.reloj.avanzar(10);
        EXPECT_EQ(b.franja().lineas().empty() ? "" : b.franja().lineas()[0], caso.luego);
        // What was cleared and scrolls comes in at the edge.
        EXPECT_TRUE(!b.tim().habilitado() || !caso.pinta.ends_with("L") || b.franja().entra());
    }
    Banco b;
    b.msg->enUso(false);
    b.msg->marcha();
    EXPECT_FALSE(b.msg->enMarcha() || b.tim().habilitado()) << "not in use";
    b.msg->enUso(true);
    EXPECT_FALSE(b.tim().habilitado()) << "in use, not yet running";
    b.marcha();
    b.e.reloj.avanzar(400);
    b.msg->texto("");
    b.msg->texto("n");
    b.olvidar();
    b.e.reloj.avanzar(10);
    EXPECT_TRUE(b.franja().entra()) << "a new one comes in from the edge";
}

}  // namespace
}  // namespace sorvanel
