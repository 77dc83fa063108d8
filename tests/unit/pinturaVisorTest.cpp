#include "display/pinturaVisor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "doubles/superficieDoble.h"

namespace sorvanel {

using testing::Each;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

namespace {

using Lineas = std::vector<std::string>;

const Rectangulo CELDA{150, 300, 12000, 3000};

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
    Lineas peso(std::int32_t milesimas, bool pavona = false, MarcasVisor marcas = {}) {
        m_peso.olvidar();
        m_pintura.pintarPeso({marcas.E, marcas.C, marcas.D, milesimas}, pavona);
        return m_peso.lineas();
    }
    Lineas sinDatos(bool pavona = false) {
        m_peso.olvidar();
        m_pintura.pintarSinDatos(pavona);
        return m_peso.lineas();
    }
    Lineas etiqueta() {
        m_etiqueta.olvidar();
        m_pintura.pintarEtiqueta();
        return m_etiqueta.lineas();
    }

    // Whether digits of that height, their marks and the caption would find room.
    bool cabria(float letra, const Rectangulo& celda, const AspectoVisor& aspecto) {
        SuperficieDoble regla;
        regla.ajustada(true);
        Fuente fuente;
        fuente.alto = letra * aspecto.ratioAlturas;
        regla.fuente(fuente);
        const int ceros = aspecto.anchoEtiqueta > 0 ? aspecto.anchoEtiqueta + 1 : 0;
        const float etiqueta = static_cast<float>(ceros) * regla.medir("0").ancho;
        fuente.alto = letra;
        regla.fuente(fuente);
        const float peso = regla.medir("9999.00").ancho + 1.35F * regla.medir("0").ancho;
        return etiqueta + peso <= celda.ancho && 0.7F * letra <= 0.88F * celda.alto;
    }

    SuperficieDoble m_etiqueta, m_peso;
    PinturaVisor m_pintura{m_etiqueta, m_peso};
};

}  // namespace

TEST_F(PinturaVisorTest, ReparteLaCelda) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_EQ(m_etiqueta.lugar(), (Rectangulo{150, 300, 3505.5F, 3000}));
    EXPECT_EQ(m_peso.lugar(), (Rectangulo{3655.5F, 300, 8494.5F, 3000}));
    EXPECT_TRUE(m_pintura.hayEtiqueta());
    EXPECT_EQ(m_etiqueta.colorFondo(), rgb(0, 0, 255));
    EXPECT_EQ(m_peso.lineas().back(), "leyenda \"\"");
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(0)));
    EXPECT_EQ(m_etiqueta.lugar().ancho, 0);
    EXPECT_EQ(m_peso.lugar(), CELDA);
    EXPECT_FALSE(m_pintura.hayEtiqueta());
}

// The double's type is exactly linear, so that the largest height of each cell is known: its ink takes 0.7
// of it and may take 0.88 of the cell; the widest weight with the marks takes 3.425 of it, and the caption
// (n + 1) / 2 of its ratio.
TEST_F(PinturaVisorTest, LetraMasGrandeQueCabe) {
    const struct {
        const char* nombre;
        float ancho, alto;
        int anchoEtiqueta;
        float ratio;
        const char* formato;
        float letra;  // 0: the cell holds no display
    } casos[] = {
        {"usual", 12000, 3000, 2, 0.95F, "####0", 2460},
        {"another format, same digits", 12000, 3000, 2, 0.95F, "0000.0", 2460},
        {"very wide", 60000, 1500, 2, 0.95F, "####0", 1875},
        {"very tall", 1500, 30000, 2, 0.95F, "####0", 300},
        {"no caption", 12000, 30000, 0, 0.95F, "####0", 3495},
        {"widest caption", 12000, 30000, 6, 1, "####0", 1725},
        {"caption beyond bounds", 12000, 30000, 99, 1, "####0", 1725},
        {"ratio above bounds", 12000, 30000, 6, 7, "####0", 1725},
        {"ratio below bounds", 12000, 30000, 6, -1, "####0", 3165},
        {"ratio no number", 12000, 30000, 6, std::numeric_limits<float>::quiet_NaN(), "####0", 3165},
        {"long format", 12000, 30000, 0, 0.95F, "0.000", 2700},
        {"format with a tail", 12000, 2000, 0, 0.95F, "0 g", 1590},
        {"just large enough", 873, 150, 2, 0.95F, "####0", 180},
        {"too narrow", 872, 150, 2, 0.95F, "####0", 0},
        {"too low", 30000, 140, 2, 0.95F, "####0", 0},
        {"many decimals", 12000, 3000, 0, 0.95F, "0.00000000000000000000000000000000000000000000000000", 420},
        {"no width", 0, 3000, 2, 0.95F, "####0", 0},
        {"negative", -150, -3000, 2, 0.95F, "####0", 0},
    };
    for (const auto& caso : casos) {
        AspectoVisor aspecto = aspectoCon(caso.anchoEtiqueta, caso.formato);
        aspecto.ratioAlturas = caso.ratio;
        m_peso.fuente(Fuente{});
        const int antes = m_peso.fuentesPuestas();
        const bool cabe = m_pintura.encajar({0, 0, caso.ancho, caso.alto}, aspecto);
        EXPECT_EQ(cabe, caso.letra > 0) << caso.nombre;
        if (cabe) {
            EXPECT_EQ(m_peso.fuente().alto, caso.letra) << caso.nombre;
        }
        EXPECT_LE(m_peso.fuentesPuestas() - antes, 12) << caso.nombre;
    }
}

// Hinted type makes jumps: whatever it does, nothing is cut and the digits stand in the middle.
TEST_F(PinturaVisorTest, ElEncajeSeCompruebaConMedidasReales) {
    m_peso.ajustada(true);
    int encajadas = 0;
    for (float ancho = 300; ancho < 20000; ancho *= 1.37F) {
        for (float alto = 100; alto < 9000; alto *= 1.29F) {
            for (int anchoEtiqueta = 0; anchoEtiqueta <= 6; anchoEtiqueta += 3) {
                const AspectoVisor aspecto = aspectoCon(anchoEtiqueta, "####0.00", "M\u00e1quina\u00a0gris");
                const auto encaje = encajarVisor(m_peso, {0, 0, ancho, alto}, aspecto, "9999.00");
                if (!encaje) continue;
                ++encajadas;
                m_peso.fuente(encaje->fuentePeso);
                const MedidaTexto muestra = m_peso.medir("9999.00");
                EXPECT_GE(encaje->derecha, muestra.ancho);
                EXPECT_GE(encaje->anchoPeso - encaje->derecha, encaje->anchoCero - 0.1F);
                EXPECT_EQ(encaje->anchoCero, m_peso.medir("0").ancho);
                EXPECT_NEAR(encaje->tintaSuperior, alto - encaje->tintaInferior, TWIPS_POR_PIXEL);
                EXPECT_GE(encaje->tintaSuperior, 0);
                EXPECT_GE(encaje->tintaInferior - encaje->tintaSuperior, aTwips(8));
                EXPECT_FALSE(cabria(encaje->fuentePeso.alto + std::max(15.0F, encaje->fuentePeso.alto / 50),
                                    {0, 0, ancho, alto}, aspecto));
                if (encaje->anchoEtiqueta <= 0) continue;
                const EncajeEtiqueta& etiqueta = encaje->etiqueta;
                m_peso.fuente(etiqueta.fuente);
                for (const LineaEtiqueta& linea : etiqueta.lineas) {
                    const MedidaTexto texto = m_peso.medir(linea.texto);
                    EXPECT_EQ(linea.ancho, texto.ancho);
                    if (etiqueta.fuente.alto > TWIPS_POR_PIXEL) {
                        EXPECT_LE(texto.ancho + 2 * etiqueta.margen, encaje->anchoEtiqueta + 0.1F);
                    }
                    EXPECT_GE(linea.y + texto.tintaSuperior, 0);
                    EXPECT_LE(linea.y + texto.tintaInferior, alto);
                }
            }
        }
    }
    EXPECT_GT(encajadas, 100);
}

TEST_F(PinturaVisorTest, SinMedidasNoCabeNada) {
    m_peso.sinFuentes(true);
    EXPECT_FALSE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_THAT(peso(1000), ElementsAre());
    EXPECT_THAT(sinDatos(), ElementsAre());
    EXPECT_THAT(etiqueta(), ElementsAre());
}

TEST_F(PinturaVisorTest, LoQueNoCabeNoCambiaNada) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    const Lineas antes = peso(1234567);
    const Lineas etiquetaAntes = etiqueta();
    ASSERT_FALSE(m_pintura.encajar({0, 0, 90, 90}, aspectoCon(0, "0", "another")));
    EXPECT_EQ(m_peso.lugar(), (Rectangulo{3655.5F, 300, 8494.5F, 3000}));
    EXPECT_EQ(m_peso.fuente().alto, 2460);
    EXPECT_EQ(peso(1234567), antes);
    EXPECT_EQ(etiqueta(), etiquetaAntes);
}

TEST_F(PinturaVisorTest, PesoALaDerecha) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_THAT(peso(1234567),
                ElementsAre("caja 0 0 6975 3000 #FFFFFF", "imprimir 210 30 \"1234.6\" #000000", "leyenda \"1234.6\""));
    EXPECT_THAT(peso(12345),
                ElementsAre("caja 0 0 6975 3000 #FFFFFF", "imprimir 210 30 \"0012.3\" #000000", "leyenda \"0012.3\""));
    // With room to spare the digits leave the edge, but not further than the marks can follow.
    ASSERT_TRUE(m_pintura.encajar({0, 0, 12000, 1500}, aspectoCon(0)));
    EXPECT_EQ(peso(0).at(0), "caja 0 0 9930 1500 #FFFFFF");
    ASSERT_TRUE(m_pintura.encajar({0, 0, 7000, 1500}, aspectoCon(0)));
    EXPECT_EQ(peso(0).at(0), "caja 0 0 5580 1500 #FFFFFF");
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2, "####")));
    EXPECT_THAT(peso(0), ElementsAre("caja 0 0 6975 3000 #FFFFFF", "leyenda \"\""));
    EXPECT_THAT(peso(7000),
                ElementsAre("caja 0 0 6975 3000 #FFFFFF", "imprimir 5745 30 \"7\" #000000", "leyenda \"7\""));
}

TEST_F(PinturaVisorTest, CincoRayasRojasDondeIrianLasCifras) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_THAT(sinDatos(), ElementsAre("caja 0 0 6975 3000 #FFFFFF", "caja 6052.5 750 615 1500 #FF0000",
                                        "caja 4822.5 750 615 1500 #FF0000", "caja 3592.5 750 615 1500 #FF0000",
                                        "caja 2362.5 750 615 1500 #FF0000", "caja 1132.5 750 615 1500 #FF0000",
                                        "leyenda \"-----\""));
}

// A heavier weight than the cell was fitted for never passes for a light one.
TEST_F(PinturaVisorTest, PesoCortado) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_THAT(peso(99999900),
                ElementsAre("caja 0 0 6975 3000 #FFFFFF", "imprimir 1440 30 \"999.9\" #000000",
                            "poligono 138.38,1506 968.62,932 968.62,2080 #FF0000", "leyenda \"99999.9\""));
    // Wide literals are cut between characters, not inside one.
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2, "\"\u20ac\u20ac\"0")));
    EXPECT_THAT(peso(99999000).at(1), testing::HasSubstr("\"99999\""));
}

TEST_F(PinturaVisorTest, MarcasDeCadaFamilia) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    const std::string columna = "caja 6975 0 1519.5 3000 #FFFFFF";
    const std::string arriba = "poligono 7278.9,1402.68 8190.6,1402.68 7734.75,645 #000000";
    const std::string abajo = "poligono 7278.9,1609.32 8190.6,1609.32 7734.75,2367 #000000";
    const struct {
        MarcasVisor marcas;
        Lineas pavona, tessel;
        const char* leyendaPavona;
        const char* leyendaTessel;
    } casos[] = {
        {{false, true, false}, {columna, arriba}, {columna}, "0001.0 C", "0001.0"},
        {{false, false, true}, {columna, abajo}, {columna}, "0001.0 D", "0001.0"},
        {{true, true, true}, {columna, arriba, abajo}, {}, "0001.0 C D", "0001.0 E"},
    };
    for (const auto& caso : casos) {
        m_pintura.limpiarPeso();
        const Lineas pavona = peso(1000, true, caso.marcas);
        EXPECT_EQ(Lineas(pavona.begin() + 2, pavona.end() - 1), caso.pavona);
        EXPECT_EQ(m_peso.textoLeyenda(), caso.leyendaPavona);
        const Lineas tessel = peso(1000, false, caso.marcas);
        if (!caso.marcas.E) {
            EXPECT_EQ(Lineas(tessel.begin() + 2, tessel.end() - 1), caso.tessel);
        }
        EXPECT_EQ(m_peso.textoLeyenda(), caso.leyendaTessel);
    }
    // The E plate stays within its column and is drawn with the letter cut out.
    m_pintura.limpiarPeso();
    const Lineas e = peso(1000, false, {true, false, false});
    ASSERT_GT(e.size(), 5U);
    EXPECT_EQ(e[2], columna);
    EXPECT_EQ(e[3].substr(e[3].size() - 7), "#000000");
    EXPECT_THAT(Lineas(e.begin() + 4, e.end() - 1), Each(testing::EndsWith("#FFFFFF")));
}

TEST_F(PinturaVisorTest, LasMarcasSoloSePintanSiCambian) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    const std::string columna = "caja 6975 0 1519.5 3000 #FFFFFF";
    const MarcasVisor cargando{false, true, false};
    EXPECT_THAT(peso(1000, true), Not(testing::Contains(columna)));
    EXPECT_THAT(peso(2000, true, cargando), testing::Contains(columna));
    EXPECT_THAT(peso(3000, true, cargando), Not(testing::Contains(columna)));
    EXPECT_THAT(sinDatos(true), testing::Contains(columna));
    EXPECT_THAT(sinDatos(true), Not(testing::Contains(columna)));
    EXPECT_THAT(peso(3000, true, cargando), testing::Contains(columna));
    m_pintura.limpiarPeso();
    EXPECT_THAT(peso(3000, false, {true, false, false}), testing::Contains(columna));
    EXPECT_THAT(sinDatos(false), testing::Contains(columna));
    m_pintura.limpiarPeso();
    EXPECT_EQ(m_peso.lineas().back(), "leyenda \"\"");
    EXPECT_THAT(peso(3000, true, cargando), testing::Contains(columna));
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2)));
    EXPECT_THAT(peso(3000, true), Not(testing::Contains(columna)));
}

TEST_F(PinturaVisorTest, OtrosColoresSinMoverNada) {
    AspectoVisor aspecto = aspectoCon(2);
    m_pintura.aspecto(aspecto);
    EXPECT_THAT(m_peso.lineas(), ElementsAre());
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspecto));
    peso(1000, true, {false, true, false});
    m_peso.olvidar();
    aspecto.fondoPeso = static_cast<Color>(0xFF000000U) | rgb(0, 128, 0);  // beyond 24 bits
    aspecto.textoPeso = rgb(255, 255, 0);
    aspecto.formato = "0";
    m_pintura.aspecto(aspecto);
    EXPECT_THAT(m_peso.lineas(), ElementsAre("colorFondo #008000"));
    // The marks are the same and yet of the old colours.
    EXPECT_THAT(peso(1000, true, {false, true, false}),
                ElementsAre("caja 0 0 6975 3000 #008000", "imprimir 210 30 \"0001.0\" #FFFF00",
                            "caja 6975 0 1519.5 3000 #008000",
                            "poligono 7278.9,1402.68 8190.6,1402.68 7734.75,645 #FFFF00", "leyenda \"0001.0 C\""));
}

TEST_F(PinturaVisorTest, Etiqueta) {
    const struct {
        const char* etiqueta;
        int ajuste;
        const char* linea;
        float letra;
    } casos[] = {
        {"12", 0, "imprimir 584.25 105 \"12\" #FFFFFF", 2337},
        {"12", 1, "imprimir 584.25 105 \"12\" #FFFFFF", 2337},
        {"1", 0, "imprimir 584.25 105 \"1\" #FFFFFF", 2337},
        {"1", 1, "imprimir 1752.75 105 \"1\" #FFFFFF", 2337},
        {"1", 2, "imprimir 1168.5 105 \"1\" #FFFFFF", 2337},
        {"1", 9, "imprimir 1168.5 105 \"1\" #FFFFFF", 2337},
        {"BASCULA", 0, "imprimir 584.25 1215 \"BASCULA\" #FFFFFF", 465},
    };
    for (const auto& caso : casos) {
        AspectoVisor aspecto = aspectoCon(2, "####0", caso.etiqueta);
        aspecto.ajusteEtiqueta = caso.ajuste;
        ASSERT_TRUE(m_pintura.encajar(CELDA, aspecto));
        EXPECT_EQ(m_etiqueta.fuente().alto, caso.letra) << caso.etiqueta;
        EXPECT_THAT(etiqueta(),
                    ElementsAre("limpiar #0000FF", "leyenda \"" + std::string(caso.etiqueta) + '"', caso.linea));
    }
    // Accents and tails are not cut: the line moves, and the type shrinks where that does not help.
    ASSERT_TRUE(m_pintura.encajar({0, 0, 60000, 1500}, aspectoCon(2, "####0", "\u00c1")));
    EXPECT_EQ(m_etiqueta.fuente().alto, 1650);
    EXPECT_THAT(etiqueta().back(), testing::HasSubstr(" -120 "));
    ASSERT_TRUE(m_pintura.encajar({0, 0, 60000, 1500}, aspectoCon(2, "####0", "\u00c1y")));
    EXPECT_EQ(m_etiqueta.fuente().alto, 1335);
    EXPECT_THAT(etiqueta().back(), testing::HasSubstr(" -75 "));
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(2, "####0", "")));
    EXPECT_THAT(etiqueta(), ElementsAre("limpiar #0000FF", "leyenda \"\""));
}

// A long caption takes more lines where it can then be read from farther away, and never loses a word.
TEST_F(PinturaVisorTest, LaEtiquetaLargaSeParte) {
    const struct {
        const char* etiqueta;
        std::vector<std::string> lineas;
    } casos[] = {
        {"Silo", {"Silo"}},
        {"B\u00e1scula\u00a0de\u00a0camiones", {"B\u00e1scula\u00a0de", "camiones"}},
        {"Tolva norte de mezcla", {"Tolva", "norte de", "mezcla"}},
        {"Superlargasinblancos", {"Superlargasinblancos"}},
        {"a b c d e f g h i j k l m", {"a b c d e f g h i j k l m"}},
        {"\u00a0 \u00a0", {"\u00a0 \u00a0"}},
    };
    for (const auto& caso : casos) {
        const auto encaje = encajarVisor(m_peso, CELDA, aspectoCon(2, "####0", caso.etiqueta), "9999");
        ASSERT_TRUE(encaje);
        std::vector<std::string> textos;
        for (const LineaEtiqueta& linea : encaje->etiqueta.lineas) textos.push_back(linea.texto);
        EXPECT_EQ(textos, caso.lineas);
    }
}

// Running weights change neither place nor size: the end of each text is the same, and no font is set.
TEST_F(PinturaVisorTest, LasCifrasNoSaltan) {
    ASSERT_TRUE(m_pintura.encajar(CELDA, aspectoCon(3, "####0.0")));
    const float letra = m_peso.fuente().alto;
    const int fuentes = m_peso.fuentesPuestas();
    const std::string texto = peso(0).at(0);
    for (std::int32_t milesimas = 1; milesimas < 9'999'000; milesimas = milesimas * 3 + 1) {
        const Lineas lineas = peso(milesimas);
        float x = 0, y = 0;
        char cifras[32] = "";
        ASSERT_EQ(std::sscanf(lineas.at(1).c_str(), "imprimir %f %f \"%31[^\"]", &x, &y, cifras), 3);
        EXPECT_EQ(lineas[0], texto);
        EXPECT_THAT(
            lineas[0],
            StartsWith("caja 0 0 " + std::to_string(static_cast<int>(std::lround(x + m_peso.medir(cifras).ancho)))));
    }
    EXPECT_EQ(m_peso.fuente().alto, letra);
    EXPECT_EQ(m_peso.fuentesPuestas(), fuentes);
}

}  // namespace sorvanel
