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

// A unit is 210 twips, and the caption's letter 294. The caption has one unit more than its width; a long weight is
// printed smaller, and what follows it as large as before.
TEST_F(PreviaTest, laEtiquetaSeAjustaYElPesoNoSeCorta) {
    const struct {
        int ancho, ajuste;
        const char* formato;
        float anchoEtiqueta, x;
        const char* texto;
        bool menor = false;
    } casos[] = {{1, 0, "0", 420, 35, "9999"},
                 {1, 1, "", 420, 91, "9999"},
                 {6, 2, "0 \"kilogramos netos en la tolva\"", 1470, 588, "9999 kilogramos netos en la tolva", true},
                 {1, 2, "###0,00", 420, 63, "9999.00"},
                 {6, 1, "0", 1470, 1141, "9999"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.ancho * 10 + c.ajuste);
        pintar(c.ancho, c.ajuste, c.formato);
        EXPECT_FLOAT_EQ(etiqueta.lugar().ancho, c.anchoEtiqueta);
        EXPECT_FLOAT_EQ(etiqueta.lugar().derecha(), peso.lugar().x);
        EXPECT_FLOAT_EQ(peso.lugar().derecha(), ZONA.derecha());
        EXPECT_NEAR(impresaEn(etiqueta), c.x, 0.1F);
        EXPECT_EQ(std::pair(etiqueta.colorFondo(), peso.colorFondo()), std::pair(0x112233, 0x778899));
        EXPECT_TRUE(etiqueta.visible() && peso.visible());
        EXPECT_EQ(peso.textoLeyenda(), c.texto);
        EXPECT_LE(impresaEn(peso) + peso.medir(c.texto).ancho, peso.lugar().ancho);
        EXPECT_EQ(peso.fuente().alto < 420, c.menor);
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

}  // namespace
}  // namespace sorvanel
