#include "dialogs/vistaPrevia.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "doubles/dialogoDoble.h"

namespace sorvanel {
namespace {

// Where the caption was printed last, from its picture's left edge; negative where it was not.
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

    void pintar(const AspectoPrevia& aspecto) {
        etiqueta.olvidar();
        peso.olvidar();
        previa.aspecto(aspecto);
    }
    float unidad() {
        return peso.medir("0").ancho;  // while the weight's font was not made smaller
    }
};

TEST_F(PreviaTest, laEtiquetaTieneUnaUnidadMasDeAnchoYSeAjusta) {
    previa.comoPieza().colocar(ZONA);
    for (std::int16_t ancho = 1; ancho <= 6; ++ancho) {
        for (std::int16_t ajuste = 0; ajuste <= 2; ++ajuste) {
            SCOPED_TRACE(ancho * 10 + ajuste);
            pintar({ancho, ajuste, 0x112233, 0x445566, 0x778899, 0xAABBCC, "0.0"});
            const float u = unidad();
            ASSERT_GT(u, 0);
            EXPECT_FLOAT_EQ(etiqueta.lugar().ancho, static_cast<float>(ancho + 1) * u);
            EXPECT_FLOAT_EQ(etiqueta.lugar().derecha(), peso.lugar().x);
            EXPECT_FLOAT_EQ(peso.lugar().derecha(), ZONA.derecha());
            const float texto = etiqueta.medir(etiqueta.textoLeyenda()).ancho;
            const float libre = etiqueta.lugar().ancho - texto;
            const float donde[] = {u / 2, libre - u / 2, libre / 2};
            EXPECT_NEAR(impresaEn(etiqueta), donde[ajuste], 0.1F);
            EXPECT_GE(impresaEn(etiqueta), 0);
            EXPECT_LE(impresaEn(etiqueta) + texto, etiqueta.lugar().ancho) << "cut";
            EXPECT_EQ(etiqueta.colorFondo(), 0x112233);
            EXPECT_EQ(peso.colorFondo(), 0x778899);
            EXPECT_TRUE(etiqueta.visible() && peso.visible());
        }
    }
}

TEST_F(PreviaTest, sinAnchoNoHayEtiqueta) {
    previa.comoPieza().colocar(ZONA);
    pintar({0, 0, BLANCO, NEGRO, BLANCO, NEGRO, "0"});
    EXPECT_FALSE(etiqueta.visible());
    EXPECT_TRUE(peso.visible());
    EXPECT_EQ(peso.lugar(), ZONA);
    EXPECT_LT(impresaEn(etiqueta), 0);
    previa.mostrar(false);
    pintar({3, 0, BLANCO, NEGRO, BLANCO, NEGRO, "0"});
    EXPECT_FALSE(etiqueta.visible() || peso.visible()) << "painting does not show what is hidden";
}

TEST_F(PreviaTest, elPesoSigueElFormatoYNoSeCorta) {
    previa.comoPieza().colocar(ZONA);
    const struct {
        const char *formato, *texto;
    } casos[] = {{"", "9999"},
                 {"###0,00", "9999.00"},
                 {"000000", "009999"},
                 {"0 \"kilogramos netos en la tolva\"", "9999 kilogramos netos en la tolva"}};
    for (const auto& c : casos) {
        pintar({6, 2, BLANCO, NEGRO, BLANCO, NEGRO, c.formato});
        EXPECT_EQ(peso.textoLeyenda(), c.texto);
        EXPECT_LE(impresaEn(peso) + peso.medir(c.texto).ancho, peso.lugar().ancho) << c.texto;
    }
    // After a long one the letters are as large as before.
    pintar({6, 2, BLANCO, NEGRO, BLANCO, NEGRO, "0"});
    EXPECT_FLOAT_EQ(etiqueta.lugar().ancho, 7 * unidad());
}

}  // namespace
}  // namespace sorvanel
