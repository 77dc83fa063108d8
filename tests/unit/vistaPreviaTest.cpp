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

// A unit is 210 twips, and the caption's letter 294. The caption has one unit more than its width; a long weight is
// printed smaller, and what follows it as large as before.
TEST(VistaPrevia, laEtiquetaSeAjustaYElPesoNoSeCorta) {
    FormularioDialogoDoble formulario;
    TallerDialogo taller{formulario};
    VistaPrevia previa{taller};
    SuperficieDoble& etiqueta = *formulario.superficie(IdControl::picEjEtq);
    SuperficieDoble& peso = *formulario.superficie(IdControl::picEjVis);
    previa.comoPieza().colocar(ZONA);
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
                 {0, 0, "0", 0, -1, "9999"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.ancho * 10 + c.ajuste);
        etiqueta.olvidar();
        peso.olvidar();
        previa.aspecto({"", c.ancho, c.ajuste, 0x112233, 0x445566, 0x778899, 0xAABBCC, c.formato, 1});
        EXPECT_EQ(peso.lugar(), (Rectangulo{200 + c.anchoEtiqueta, 300, 5000 - c.anchoEtiqueta, 600}));
        EXPECT_NEAR(impresaEn(etiqueta), c.x, 0.1F);
        EXPECT_EQ(std::pair(etiqueta.colorFondo(), peso.colorFondo()), std::pair(0x112233, 0x778899));
        EXPECT_TRUE(etiqueta.visible() == (c.ancho > 0) && peso.visible());
        EXPECT_EQ(peso.textoLeyenda(), c.texto);
        EXPECT_LE(impresaEn(peso) + peso.medir(c.texto).ancho, peso.lugar().ancho);
        EXPECT_EQ(peso.fuente().alto < 420, c.menor);
    }
    previa.mostrar(false);
    previa.aspecto({"", 3, 0, 0, 0, 0, 0, "0", 1});
    EXPECT_FALSE(etiqueta.visible() || peso.visible()) << "painting does not show what is hidden";
}

}  // namespace
}  // namespace sorvanel
