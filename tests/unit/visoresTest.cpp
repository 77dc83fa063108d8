#include <gtest/gtest.h>

#include "display/ctrlVis.h"
#include "display/disenoVisor.h"
#include "display/visores.h"
#include "doubles/compartidoDoble.h"
#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

std::string secciones(int cuantas) {
    std::string ini;
    for (int n = 1; n <= cuantas; ++n) {
        const std::string texto = std::to_string(n);
        ini += "[VISOR_" + texto + "]\r\nPort=" + std::to_string(3000 + n) + "\r\nEtiqueta=V" + texto + "\r\n";
    }
    return ini;
}

struct Banco {
    EntornoDoble e;
    CompartidoDoble compartido;
    Visores cargar(const std::string& ini) {
        e.ini(ini);
        return Visores(e.com, e.fabrica, e.reloj, compartido);
    }
};

TEST(Visores, laPrimeraSeccionSinPuertoTerminaLaCarga) {
    Banco b;
    EXPECT_EQ(b.cargar("").cuantos(), 0);
    EXPECT_EQ(b.cargar(secciones(70)).cuantos(), 64);
    EXPECT_EQ(b.cargar(secciones(2) + "[VISOR_4]\r\nPort=3004\r\n").cuantos(), 2);
}

TEST(Visores, unoNuevoNoTocaMasQueSuSeccionYAlcanzaALosDeDetras) {
    const std::string cuatro = "[VISOR_4]\r\nPort=3004\r\nEtiqueta=Viejo\r\nUbicacion=1,1\r\n";
    const struct {
        std::string detras;
        std::int16_t cuantos;
    } casos[] = {{"", 3}, {cuatro, 4}, {"[VISOR_5]\r\nPort=5\r\n", 3}, {cuatro + "[VISOR_5]\r\nPort=5\r\n", 5}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.detras);
        Banco b;
        Visores visores = b.cargar(secciones(2) + c.detras);
        const visor* const nuevo = visores.nuevo(0, "");
        EXPECT_EQ(visores.uno(3), nuevo);
        ASSERT_EQ(visores.cuantos(), c.cuantos);
        EXPECT_EQ(visores.uno(3)->port(), 0);
        EXPECT_NE(b.e.ini().find(secciones(2) + c.detras), std::string::npos) << b.e.ini();
        if (c.cuantos > 3) {
            EXPECT_EQ(visores.uno(4)->caption(), "Viejo");
        }
        // The next one has a number of its own.
        ASSERT_NE(visores.nuevo(0, ""), nullptr);
        EXPECT_EQ(b.cargar(b.e.ini()).cuantos(), visores.cuantos());
        EXPECT_EQ(b.e.valor("VISOR_5", "Port") == "5", c.detras.find("_5") != std::string::npos);
    }
}

TEST(Visores, eliminarCierraElHuecoEnUnSoloReemplazoDelArchivo) {
    Banco b;
    Visores visores = b.cargar(secciones(2) + "Origen=10.0.0.2\r\n" + secciones(4).substr(secciones(2).size()) +
                               "Origen=10.0.0.4\r\n");
    for (const auto fuera : std::initializer_list<std::int16_t>{0, 5, -1}) EXPECT_FALSE(visores.eliminar(fuera));
    const int antes = b.e.archivos.reemplazos;
    ASSERT_TRUE(visores.eliminar(2));
    b.e.perfil.ocio(true);
    EXPECT_EQ(b.e.archivos.reemplazos, antes + 1);
    ASSERT_EQ(visores.cuantos(), 3);
    const char* esperadas[] = {"V1", "V3", "V4"};
    for (std::int16_t n = 1; n <= 3; ++n) {
        EXPECT_EQ(visores.uno(n)->caption(), esperadas[n - 1]);
        EXPECT_EQ(b.e.valor("VISOR_" + std::to_string(n), "Etiqueta"), esperadas[n - 1]);
    }
    EXPECT_EQ(b.e.valor("VISOR_2", "Origen") + b.e.valor("VISOR_3", "Origen"), "10.0.0.4") << "each keeps its own";
    ASSERT_TRUE(visores.eliminar(3));
    EXPECT_EQ(b.e.ini().find("[VISOR_3]"), std::string::npos);
    EXPECT_TRUE(visores.uno(3) == nullptr && visores.uno(0) == nullptr);
}

TEST(Visores, nuevoTomaElSiguienteNumeroSalvoDuplicado) {
    Banco b;
    Visores visores = b.cargar(secciones(2) + "[VISOR_3]\r\nOrigen=10.0.0.3\r\n");
    EXPECT_EQ(visores.nuevo(3001, "otro"), nullptr);
    EXPECT_EQ(visores.nuevo(0, "V2"), nullptr);
    // Port 0 and no caption are nobody's.
    while (visores.cuantos() < 64) ASSERT_NE(visores.nuevo(0, ""), nullptr);
    EXPECT_EQ(b.e.valor("VISOR_3", "Origen"), "") << "somebody else's";
    EXPECT_EQ(b.e.valor("VISOR_4", "Port") + b.e.valor("VISOR_4", "ModoBulk"), "04");
    EXPECT_EQ(b.e.ini().find("[VISOR_0]"), std::string::npos);
    EXPECT_EQ(visores.nuevo(0, ""), nullptr);
}

TEST(ctrlVis, preguntaALoGuardado) {
    EntornoDoble e;
    e.ini(
        "[VISOR_1]\r\nPort=3001\r\nModoBulk=2\r\nEtiqueta=  Tolva \r\nUbicacion=2,1\r\n"
        "[VISOR_2]\r\nPort=0\r\nUbicacion=0,0\r\n[VISOR_4]\r\nPort=3004\r\n");
    const ctrlVis c(e.com);
    EXPECT_TRUE(c.portExiste(3001, 2));
    EXPECT_FALSE(c.portExiste(3001, 4)) << "another bulk mode may share the port";
    EXPECT_FALSE(c.portExiste(0, 4));
    EXPECT_FALSE(c.portExiste(3004, 4)) << "behind a gap";
    EXPECT_TRUE(c.etiquetaExiste("Tolva") && c.ubicacionExiste(" 2,1 "));
    EXPECT_FALSE(c.etiquetaExiste("TOLVA") || c.etiquetaExiste(""));
    EXPECT_FALSE(c.ubicacionExiste("0,0") || c.ubicacionExiste(""));
}

TEST(diseñoVisor, tieneOmisionesYLimites) {
    const struct {
        const char* ini;
        int ancho, ajuste;
        float ratio;
        Color fondo;
    } casos[] = {
        {"", 2, 2, 0.95F, 0xFF0000},
        {"anchoEtiqueta=12\r\najusteEtiqueta=-3\r\nratioAlturas=1.5\r\nfondoEtiqueta=FF00000A", 6, 0, 1.5F, 10},
        {"anchoEtiqueta=-3\r\najusteEtiqueta=9\r\nratioAlturas=0,5\r\nfondoEtiqueta=B rojo", 0, 2, 0.5F, 11},
        {"anchoEtiqueta=x\r\nratioAlturas=x\r\nfondoEtiqueta=x", 2, 2, 0.95F, 0}};
    for (const auto& c : casos) {
        EntornoDoble e;
        e.ini(std::string("[VISORES]\r\n") + c.ini + "\r\n");
        const diseñoVisor d(e.com);
        EXPECT_EQ(std::tuple(d.anchoEtiqueta(), d.ajusteEtiqueta(), d.ratioAlturas(), d.colorFondoEtiqueta()),
                  std::tuple(c.ancho, c.ajuste, c.ratio, c.fondo))
            << c.ini;
    }
}

TEST(diseñoVisor, cadaEscrituraGuardaTodaLaSeccion) {
    EntornoDoble e;
    diseñoVisor d(e.com);
    for (const float negado : {0.1F, 1.0F, 0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_FALSE(d.ratioAlturas(negado));
        EXPECT_EQ(e.ini(), "") << negado;
    }
    EXPECT_TRUE(!d.anchoEtiqueta(7) && d.ajusteEtiqueta(1) && d.ratioAlturas(0.45F)) << "whether it was taken as it is";
    d.formatoPeso("");
    d.colorFondoEtiqueta(1), d.colorTextoEtiqueta(2), d.colorFondoPeso(3), d.colorTextoPeso(0x7F000004);
    EXPECT_EQ(e.ini(),
              "[VISORES]\r\nanchoEtiqueta=6\r\najusteEtiqueta=1\r\nfondoEtiqueta=000001\r\ntextoEtiqueta=000002\r\n"
              "fondoPeso=000003\r\ntextoPeso=000004\r\nformatoPeso=\r\nratioAlturas=0,45\r\netiquetaEncima=No\r\n");
    EXPECT_EQ(std::tuple(d.colorTextoEtiqueta(), d.colorFondoPeso(), d.colorTextoPeso(), d.formatoPeso()),
              std::tuple(2, 3, 4, ""));
}

}  // namespace
}  // namespace sorvanel
