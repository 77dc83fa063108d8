#include "dialogs/vistaPrevia.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "doubles/dialogoDoble.h"

namespace sorvanel {
namespace {

// Where the text was printed last, from its picture's left edge; negative where it was not.
float impresaEn(const SuperficieDoble& s) {
    float x = -1;
    for (const std::string& linea : s.lineas()) std::sscanf(linea.c_str(), "imprimir %f", &x);
    return x;
}

constexpr Rectangulo ZONA{200, 300, 5000, 600};

class PreviaTest : public ::testing::Test {
protected:
    FormularioDialogoDoble formulario;
    TallerDialogo taller{formulario};
    VistaPrevia previa{taller};
    SuperficieDoble& etiqueta = *formulario.superficie(IdControl::picEjEtq);
    SuperficieDoble& peso = *formulario.superficie(IdControl::picEjVis);

    void SetUp() override { previa.comoPieza().colocar(ZONA); }
    void pintar(int ancho, int ajuste, const char* formato = "0") {
        etiqueta.olvidar();
        peso.olvidar();
        previa.aspecto({"", ancho, ajuste, 0x112233, 0x445566, 0x778899, 0xAABBCC, formato, 1});
    }
};

// A unit is 210 twips, and the caption's letter 294.
TEST_F(PreviaTest, laEtiquetaTieneUnaUnidadMasDeAnchoYSeAjusta) {
    const struct {
        int ancho, ajuste;
        float anchoEtiqueta, x;
    } casos[] = {{1, 0, 420, 105}, {1, 1, 420, 21}, {1, 2, 420, 63}, {6, 0, 1470, 105}, {6, 1, 1470, 1071}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.ancho * 10 + c.ajuste);
        pintar(c.ancho, c.ajuste);
        EXPECT_FLOAT_EQ(etiqueta.lugar().ancho, c.anchoEtiqueta);
        EXPECT_FLOAT_EQ(etiqueta.lugar().derecha(), peso.lugar().x);
        EXPECT_FLOAT_EQ(peso.lugar().derecha(), ZONA.derecha());
        EXPECT_NEAR(impresaEn(etiqueta), c.x, 0.1F);
        EXPECT_EQ(etiqueta.colorFondo(), 0x112233);
        EXPECT_EQ(peso.colorFondo(), 0x778899);
        EXPECT_TRUE(etiqueta.visible() && peso.visible());
    }
    pintar(0, 0);
    EXPECT_FALSE(etiqueta.visible());
    EXPECT_TRUE(peso.visible());
    EXPECT_EQ(peso.lugar(), ZONA);
    EXPECT_LT(impresaEn(etiqueta), 0);
    previa.mostrar(false);
    pintar(3, 0);
    EXPECT_FALSE(etiqueta.visible() || peso.visible()) << "painting does not show what is hidden";
}

TEST_F(PreviaTest, elPesoSigueElFormatoYNoSeCorta) {
    const std::pair<const char*, const char*> casos[] = {
        {"0 \"kilogramos netos en la tolva\"", "9999 kilogramos netos en la tolva"},
        {"", "9999"},
        {"###0,00", "9999.00"}};
    for (const auto& [formato, texto] : casos) {
        pintar(6, 2, formato);
        EXPECT_EQ(peso.textoLeyenda(), texto);
        EXPECT_LE(impresaEn(peso) + peso.medir(texto).ancho, peso.lugar().ancho) << texto;
        EXPECT_EQ(peso.fuente().alto < 420, formato == casos[0].first) << "after a long one as large as before";
    }
}

}  // namespace
}  // namespace sorvanel
