#include "display/pinturaVisor.h"

#include <gmock/gmock.h>

#include <limits>

#include "display/familia.h"
#include "doubles/superficieDoble.h"

namespace sorvanel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using Lineas = std::vector<std::string>;

const Rectangulo CELDA{150, 300, 12000, 3000};
// What the weight's surface shows in that cell beside a caption of two digits.
const std::string BORRADO = "caja 0 0 6975 3000 #FFFFFF", COLUMNA = "caja 6975 0 1519.5 3000 #FFFFFF";
const std::string ARRIBA = "poligono 7278.9,1402.68 8190.6,1402.68 7734.75,645 #000000";
const std::string ABAJO = "poligono 7278.9,1609.32 8190.6,1609.32 7734.75,2367 #000000";
constexpr MarcasVisor E{true, false, false}, C{false, true, false}, D{false, false, true}, TODAS{true, true, true};

AspectoVisor aspectoCon(int anchoEtiqueta, const char* formato = "0000.0", const char* etiqueta = "T1") {
    AspectoVisor aspecto;
    aspecto.etiqueta = etiqueta;
    aspecto.anchoEtiqueta = anchoEtiqueta;
    aspecto.fondoEtiqueta = rgb(0, 0, 255);
    aspecto.formato = formato;
    return aspecto;
}

class PinturaVisorTest : public testing::Test {
protected:
    bool encajar(int anchoEtiqueta = 2, const char* formato = "0000.0", const Rectangulo& celda = CELDA) {
        return m_pintura.encajar(celda, aspectoCon(anchoEtiqueta, formato));
    }
    Lineas peso(std::int32_t milesimas, bool pavona = false, MarcasVisor marcas = {}) {
        m_peso.olvidar();
        m_pintura.pintarPeso({marcas.E, marcas.C, marcas.D, milesimas},
                             (pavona ? FAMILIA_PAVONA : FAMILIA_TESSEL).marcas);
        return m_peso.lineas();
    }
    Lineas sinDatos(bool pavona = false) {
        m_peso.olvidar();
        m_pintura.pintarSinDatos((pavona ? FAMILIA_PAVONA : FAMILIA_TESSEL).marcas);
        return m_peso.lineas();
    }
    Lineas etiqueta() {
        m_etiqueta.olvidar();
        m_pintura.pintarEtiqueta();
        return m_etiqueta.lineas();
    }
    SuperficieDoble m_etiqueta, m_peso;
    PinturaVisor m_pintura{m_etiqueta, m_peso};
};

TEST_F(PinturaVisorTest, ReparteLaCelda) {
    ASSERT_TRUE(encajar());
    EXPECT_EQ(m_etiqueta.lugar(), (Rectangulo{150, 300, 3505.5F, 3000}));
    EXPECT_EQ(m_peso.lugar(), (Rectangulo{3655.5F, 300, 8494.5F, 3000}));
    EXPECT_TRUE(m_pintura.hayEtiqueta());
    const Lineas etiquetaAntes = etiqueta();
    peso(1234567, true, C);
    // What does not fit changes nothing.
    ASSERT_FALSE(m_pintura.encajar({0, 0, 90, 90}, aspectoCon(0, "0", "another")));
    EXPECT_EQ(m_peso.lugar(), (Rectangulo{3655.5F, 300, 8494.5F, 3000}));
    EXPECT_EQ(m_peso.fuente().alto, 2460);
    EXPECT_EQ(peso(1234567, true, C), (Lineas{"leyenda \"T1: 1234.6, en carga\""})) << "it stands there already";
    EXPECT_EQ(etiqueta(), etiquetaAntes);

    ASSERT_TRUE(encajar(0));
    EXPECT_EQ(m_etiqueta.lugar().ancho, 0);
    EXPECT_EQ(m_peso.lugar(), CELDA);
    EXPECT_FALSE(m_pintura.hayEtiqueta());
}

// The double's type is exactly linear, so that the largest height of each cell is known: its ink takes 0.7
// of it and may take 0.88 of the cell; the widest weight with the marks takes 3.425 of it, and the caption
// (n + 1) / 2 of its ratio.
TEST_F(PinturaVisorTest, LetraMasGrandeQueCabe) {
    constexpr float USUAL = 0.95F, NO_ES_NUMERO = std::numeric_limits<float>::quiet_NaN();
    const struct {
        float ancho, alto;
        int anchoEtiqueta;
        float ratio;
        std::string formato;
        float letra;  // 0: the cell holds no display
    } casos[] = {{60000, 1500, 2, USUAL, "####0", 1875},
                 {1500, 30000, 2, USUAL, "####0", 300},
                 {12000, 30000, 0, USUAL, "####0", 3495},
                 // Caption and ratio beyond their bounds.
                 {12000, 30000, 99, 1, "####0", 1725},
                 {12000, 30000, 6, 7, "####0", 1725},
                 {12000, 30000, 6, NO_ES_NUMERO, "####0", 3165},
                 // Long formats, and one with a tail.
                 {12000, 30000, 0, USUAL, "0.000", 2700},
                 {12000, 2000, 0, USUAL, "0 g", 1590},
                 {12000, 2000, 0, USUAL, "0 \u00c1", 1755},
                 {12000, 3000, 0, USUAL, "0." + std::string(50, '0'), 420},
                 // Just large enough, and too small.
                 {873, 150, 2, USUAL, "####0", 180},
                 {872, 150, 2, USUAL, "####0", 0},
                 {30000, 140, 2, USUAL, "####0", 0},
                 {-150, -3000, 2, USUAL, "####0", 0}};
    for (const auto& caso : casos) {
        SCOPED_TRACE(&caso - casos);
        AspectoVisor aspecto = aspectoCon(caso.anchoEtiqueta, caso.formato.c_str());
        aspecto.ratioAlturas = caso.ratio;
        const int antes = m_peso.fuentesPuestas();
        const bool cabe = m_pintura.encajar({0, 0, caso.ancho, caso.alto}, aspecto);
        EXPECT_EQ(cabe ? m_peso.fuente().alto : 0, caso.letra);
        EXPECT_LE(m_peso.fuentesPuestas() - antes, 12);
    }
    m_peso.sinFuentes(true);  // nothing can be measured
    EXPECT_FALSE(encajar());
}

// Hinted type makes jumps: whatever it does, nothing is cut, the digits stand in the middle, and a step larger they
// would not fit.
TEST_F(PinturaVisorTest, ElEncajeSeCompruebaConMedidasReales) {
    m_peso.ajustada(true);
    const auto mide = [this](float letra, std::string_view texto) {
        Fuente fuente;
        fuente.alto = letra;
        m_peso.fuente(fuente);
        return m_peso.medir(texto);
    };
    int encajadas = 0;
    for (float ancho = 300; ancho < 20000; ancho *= 1.37F) {
        for (float alto = 100; alto < 9000; alto *= 1.29F) {
            for (const int ceros : {0, 4, 7}) {
                const AspectoVisor aspecto = aspectoCon(std::max(ceros - 1, 0), "####0.00", "M\u00e1quina\u00a0gris");
                const auto encaje = encajarVisor(m_peso, {0, 0, ancho, alto}, aspecto, "9999.00");
                if (!encaje) continue;
                ++encajadas;
                const float letra = encaje->fuentePeso.alto, mayor = letra + std::max(15.0F, letra / 50);
                const float pide = static_cast<float>(ceros) * mide(mayor * aspecto.ratioAlturas, "0").ancho +
                                   mide(mayor, "9999.00").ancho + 1.35F * mide(mayor, "0").ancho;
                EXPECT_TRUE(pide > ancho || 0.7F * mayor > 0.88F * alto);
                EXPECT_GE(encaje->derecha, mide(letra, "9999.00").ancho);
                EXPECT_EQ(encaje->anchoCero, mide(letra, "0").ancho);
                EXPECT_GE(encaje->anchoPeso - encaje->derecha, encaje->anchoCero - 0.1F);
                EXPECT_NEAR(encaje->tintaSuperior, alto - encaje->tintaInferior, TWIPS_POR_PIXEL);
                EXPECT_GE(encaje->tintaInferior - encaje->tintaSuperior, aTwips(8));
                const EncajeEtiqueta& etiqueta = encaje->etiqueta;
                for (const LineaEtiqueta& linea : etiqueta.lineas) {
                    const MedidaTexto texto = mide(etiqueta.fuente.alto, linea.texto);
                    EXPECT_EQ(linea.ancho, texto.ancho);
                    EXPECT_TRUE(etiqueta.fuente.alto <= TWIPS_POR_PIXEL ||
                                texto.ancho + 2 * etiqueta.margen <= encaje->anchoEtiqueta + 0.1F);
                    EXPECT_TRUE(linea.y + texto.tintaSuperior >= 0 && linea.y + texto.tintaInferior <= alto);
                }
            }
        }
    }
    EXPECT_GT(encajadas, 100);
}

TEST_F(PinturaVisorTest, PesoALaDerecha) {
    EXPECT_THAT(peso(1000), ElementsAre()) << "not before it has a place";
    EXPECT_THAT(sinDatos(), ElementsAre());
    EXPECT_THAT(etiqueta(), ElementsAre());
    // With room to spare the digits leave the edge, but not further than the marks can follow.
    ASSERT_TRUE(encajar(0, "0000.0", {0, 0, 12000, 1500}));
    EXPECT_EQ(peso(0).at(0), "caja 0 0 9930 1500 #FFFFFF");
    ASSERT_TRUE(encajar(0, "0000.0", {0, 0, 7000, 1500}));
    EXPECT_EQ(peso(0).at(0), "caja 0 0 5580 1500 #FFFFFF");
    ASSERT_TRUE(encajar(2, "####"));
    EXPECT_THAT(peso(0), ElementsAre(BORRADO, "leyenda \"T1: \""));
    EXPECT_THAT(peso(7000), ElementsAre(BORRADO, "imprimir 5745 30 \"7\" #000000", "leyenda \"T1: 7\""));
    ASSERT_TRUE(encajar());
    EXPECT_THAT(peso(12345), ElementsAre(BORRADO, "imprimir 210 30 \"0012.3\" #000000", "leyenda \"T1: 0012.3\""));
    // A heavier weight than the cell was fitted for is printed whole, in smaller letters with the same right end, which
    // are made once; what follows it as large as before.
    const int antes = m_peso.fuentesPuestas();
    const Lineas mayor = peso(99999900);
    EXPECT_THAT(mayor, Contains("fuente Arial 2145 negrita"));
    EXPECT_THAT(mayor, Contains("imprimir 3.75 225 \"99999.9\" #000000"));
    EXPECT_THAT(peso(99999000), ElementsAre(HasSubstr("caja "), HasSubstr("imprimirEn "), "leyenda \"T1: 99999.0\""));
    EXPECT_THAT(peso(12345), Contains("imprimir 210 30 \"0012.3\" #000000"));
    EXPECT_EQ(m_peso.fuente().alto, 2460);
    EXPECT_LE(m_peso.fuentesPuestas() - antes, 5);
    // Five red dashes where the digits would be.
    EXPECT_THAT(sinDatos(), ElementsAre(BORRADO, "caja 6052.5 750 615 1500 #FF0000", "caja 4822.5 750 615 1500 #FF0000",
                                        "caja 3592.5 750 615 1500 #FF0000", "caja 2362.5 750 615 1500 #FF0000",
                                        "caja 1132.5 750 615 1500 #FF0000", "leyenda \"T1: sin datos\""));
    // Where nobody could read that, the sign alone.
    ASSERT_TRUE(encajar(0, "0.0", {0, 0, 617, 150}));
    const Lineas flecha = peso(2147483647);
    EXPECT_THAT(Lineas(flecha.end() - 3, flecha.end()),
                ElementsAre("caja 0 0 495 150 #FFFFFF", HasSubstr("#FF0000"), "leyenda \"T1: 2147483.6\""));
    EXPECT_THAT(flecha, testing::Each(Not(HasSubstr("imprimir"))));
}

// Wherever red would not be seen there is a border in the weight's colour; the reason stands below, in what of it
// has room.
TEST_F(PinturaVisorTest, SinDatosSeVeEnTodoFondo) {
    AspectoVisor aspecto = aspectoCon(2);
    const std::pair<Color, bool> fondos[] = {{BLANCO, false}, {NEGRO, false}, {ROJO, true}, {rgb(128, 128, 128), true}};
    for (const auto& [fondo, conBorde] : fondos) {
        aspecto.fondoPeso = fondo;
        aspecto.textoPeso = rgb(1, 2, 3);
        ASSERT_TRUE(m_pintura.encajar(CELDA, aspecto));
        const Lineas rayas = sinDatos();
        EXPECT_EQ(rayas.size(), conBorde ? 12U : 7U) << fondo;
        EXPECT_EQ(rayas[1], std::string("caja 6052.5 750 615 1500 ") + (conBorde ? "#010203" : "#FF0000"));
        EXPECT_EQ(rayas[2] == "caja 6142.5 840 435 1320 #FF0000", conBorde);
    }
    const std::vector<std::string> motivos{"Sin datos desde 10:42", "10:42", "0"};
    const std::pair<Rectangulo, const char*> celdas[] = {
        {CELDA, "Sin datos desde 10:42"}, {{0, 0, 2000, 1000}, "10:42"}, {{0, 0, 873, 150}, ""}};
    for (const auto& [celda, dicho] : celdas) {
        ASSERT_TRUE(m_pintura.encajar(celda, aspectoCon(2)));
        const Fuente letra = m_peso.fuente();
        m_peso.olvidar();
        m_pintura.pintarSinDatos({}, motivos);
        EXPECT_EQ(
            std::count_if(m_peso.lineas().begin(), m_peso.lineas().end(),
                          [&](const std::string& l) { return l.find(std::string("\"") + dicho + '"') != l.npos; }),
            *dicho == 0 ? 0 : 1)
            << dicho;
        EXPECT_EQ(m_peso.textoLeyenda(), "T1: sin datos. Sin datos desde 10:42");
        m_pintura.pintarPeso({false, false, false, 1000}, {});
        EXPECT_EQ(m_peso.fuente(), letra) << "the digits have their letters again";
    }
}

TEST_F(PinturaVisorTest, LaEtiquetaEncimaDejaAlPesoTodoElAncho) {
    for (const Rectangulo& celda : {CELDA, Rectangulo{0, 0, 19200, 11520}, Rectangulo{0, 0, 2400, 1440}}) {
        AspectoVisor aspecto = aspectoCon(2, "####0", "Silo 1");
        ASSERT_TRUE(m_pintura.encajar(celda, aspecto));
        const float alLado = m_peso.fuente().alto;
        aspecto.etiquetaEncima = true;
        ASSERT_TRUE(m_pintura.encajar(celda, aspecto));
        const Rectangulo peso = m_peso.lugar(), etiqueta = m_etiqueta.lugar();
        EXPECT_EQ(etiqueta, (Rectangulo{celda.x, celda.y, celda.ancho, peso.y - celda.y}));
        EXPECT_EQ(peso, (Rectangulo{celda.x, etiqueta.abajo(), celda.ancho, celda.alto - etiqueta.alto}));
        EXPECT_LE(m_etiqueta.fuente().alto, m_peso.fuente().alto * aspecto.ratioAlturas + 0.01F);
        EXPECT_GE(m_etiqueta.fuente().alto * 0.7F, 0.2F * celda.alto * aspecto.ratioAlturas) << "never a thin strip";
        EXPECT_EQ(m_peso.fuente().alto >= alLado * 1.35F, celda.alto * 2 > celda.ancho);
        aspecto.anchoEtiqueta = 0;
        ASSERT_TRUE(m_pintura.encajar(celda, aspecto));
        EXPECT_EQ(m_peso.lugar(), celda);
    }
}

TEST_F(PinturaVisorTest, MarcasDeCadaFamilia) {
    ASSERT_TRUE(encajar());
    const struct {
        bool pavona;
        MarcasVisor marcas;
        Lineas pintado;
        const char* leyenda;
    } casos[] = {{true, C, {COLUMNA, ARRIBA}, "T1: 0001.0, en carga"},
                 {true, D, {COLUMNA, ABAJO}, "T1: 0001.0, en descarga"},
                 {true, TODAS, {COLUMNA, ARRIBA, ABAJO}, "T1: 0001.0, en carga, en descarga"},
                 {true, E, {}, "T1: 0001.0"},
                 {false, C, {}, "T1: 0001.0"},
                 {false, D, {}, "T1: 0001.0"}};
    for (const auto& caso : casos) {
        m_pintura.limpiarPeso();
        const Lineas todo = peso(1000, caso.pavona, caso.marcas);
        EXPECT_EQ(Lineas(todo.begin() + 2, todo.end() - 1), caso.pintado);
        EXPECT_EQ(m_peso.textoLeyenda(), caso.leyenda);
    }
    // The E plate stays within its column and is drawn with the letter cut out.
    m_pintura.limpiarPeso();
    const Lineas e = peso(1000, false, TODAS);
    ASSERT_GT(e.size(), 5U);
    EXPECT_EQ(m_peso.textoLeyenda(), "T1: 0001.0, equilibrio");
    EXPECT_EQ(e[2], COLUMNA);
    EXPECT_THAT(e[3], testing::EndsWith("#000000"));
    EXPECT_THAT(Lineas(e.begin() + 4, e.end() - 1), testing::Each(testing::EndsWith("#FFFFFF")));
}

TEST_F(PinturaVisorTest, Etiqueta) {
    const Rectangulo baja{0, 0, 60000, 1500};
    const struct {
        std::string etiqueta;
        int ajuste;
        Rectangulo celda;
        const char* linea;
        float letra;
    } casos[] = {{"12", 0, CELDA, "imprimir 194.75 105 \"12\" #FFFFFF", 2337},
                 {"1", 0, CELDA, "imprimir 194.75 105 \"1\" #FFFFFF", 2337},
                 {"1", 1, CELDA, "imprimir 2142.25 105 \"1\" #FFFFFF", 2337},
                 {"1", 9, CELDA, "imprimir 1168.5 105 \"1\" #FFFFFF", 2337},
                 {"BASCULA", 0, CELDA, "imprimir 194.75 1125 \"BASCULA\" #FFFFFF", 630},
                 {"", 0, CELDA, "leyenda \"\"", 2337},
                 // Accents and tails are not cut: the line moves, and the type shrinks where that does not help.
                 {"\u00c1", 0, baja, " -120 \"", 1650},
                 {"\u00c1y", 0, baja, " -75 \"", 1335}};
    for (const auto& caso : casos) {
        AspectoVisor aspecto = aspectoCon(2, "####0", caso.etiqueta.c_str());
        aspecto.ajusteEtiqueta = caso.ajuste;
        ASSERT_TRUE(m_pintura.encajar(caso.celda, aspecto));
        EXPECT_EQ(m_etiqueta.fuente().alto, caso.letra) << caso.etiqueta;
        const Lineas lineas = etiqueta();
        EXPECT_EQ(lineas.at(0) + lineas.at(1), "limpiar #0000FFleyenda \"" + caso.etiqueta + '"');
        EXPECT_THAT(lineas.back(), HasSubstr(caso.linea));
    }
}

// A long caption takes more lines where it can then be read from farther away, and never loses a word.
TEST_F(PinturaVisorTest, LaEtiquetaLargaSeParte) {
    const std::pair<const char*, Lineas> casos[] = {
        {"Silo", {"Silo"}},
        {"B\u00e1scula de\u00a0camiones", {"B\u00e1scula", "de", "camiones"}},
        {"Tolva\u00a0norte de mezcla", {"Tolva", "norte de", "mezcla"}},
        {"Superlargasinblancos", {"Superlargasinblancos"}},
        {"a b c d e f g h i j k l m", {"a b c d e f g h i j k l m"}},
        {"\u00a0 \u00a0", {"\u00a0 \u00a0"}}};
    for (const auto& [texto, partes] : casos) {
        const auto encaje = encajarVisor(m_peso, CELDA, aspectoCon(2, "####0", texto), "9999");
        ASSERT_TRUE(encaje);
        Lineas textos;
        for (const LineaEtiqueta& linea : encaje->etiqueta.lineas) textos.push_back(linea.texto);
        EXPECT_EQ(textos, partes);
    }
    // Words are cut where nobody could read them else, as they are spoken.
    const std::pair<const char*, Lineas> pequenas[] = {
        {"Mezcladora", {"Mez-", "cla-", "dora"}}, {"Norte", {"Norte"}}, {"WWWWWWWWWW", {"WWWWWWWWWW"}}};
    for (const auto& [texto, partes] : pequenas) {
        const auto encaje = encajarVisor(m_peso, {0, 0, 2400, 1440}, aspectoCon(2, "####0", texto), "9999");
        Lineas textos;
        for (const LineaEtiqueta& linea : encaje.value().etiqueta.lineas) textos.push_back(linea.texto);
        EXPECT_EQ(textos, partes);
    }
}

}  // namespace
}  // namespace sorvanel
