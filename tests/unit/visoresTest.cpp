#include <gtest/gtest.h>

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
        return Visores(e.entorno, compartido);
    }
};

TEST(Visores, laPrimeraSeccionSinPuertoTerminaLaCarga) {
    Banco b;
    EXPECT_EQ(b.cargar("").cuantos(), 0);
    EXPECT_EQ(b.cargar("[VISOR_1]\r\nPort=1\r\n[VISOR_2]\r\nPort=2\r\n[VISOR_4]\r\nPort=4\r\n").cuantos(), 2);
    EXPECT_EQ(b.cargar(secciones(70)).cuantos(), 64);
}

TEST(Visores, unoNuevoNoDespiertaLosQueHabiaTrasElHueco) {
    Banco b;
    const std::string tras = "[VISOR_4]\r\nPort=3003\r\nEtiqueta=Viejo\r\n[VISOR_5]\r\nPort=5\r\n";
    ASSERT_NE(b.cargar(secciones(2) + tras).nuevo(0, ""), nullptr);
    Visores visores = b.cargar(b.e.ini());
    EXPECT_EQ(visores.cuantos(), 3);
    EXPECT_EQ(b.e.valor("VISOR_4", "Etiqueta"), "Viejo") << "until that number is given";
    ASSERT_NE(visores.nuevo(0, ""), nullptr);
    EXPECT_EQ(b.cargar(b.e.ini()).cuantos(), 4);
    EXPECT_EQ(b.e.valor("VISOR_4", "Etiqueta"), "");
}

TEST(Visores, eliminarCierraElHueco) {
    Banco b;
    Visores visores = b.cargar(secciones(4));
    for (const auto fuera : std::initializer_list<std::int16_t>{0, 5, -1}) EXPECT_FALSE(visores.eliminar(fuera));
    ASSERT_TRUE(visores.eliminar(2));
    ASSERT_EQ(visores.cuantos(), 3);
    const char* esperadas[] = {"V1", "V3", "V4"};
    for (std::int16_t n = 1; n <= 3; ++n) {
        EXPECT_EQ(visores.uno(n)->caption(), esperadas[n - 1]);
        EXPECT_EQ(b.e.valor("VISOR_" + std::to_string(n), "Etiqueta"), esperadas[n - 1]);
    }
    EXPECT_EQ(b.e.ini().find("[VISOR_4]"), std::string::npos);
    ASSERT_TRUE(visores.eliminar(3));
    EXPECT_EQ(b.e.ini().find("[VISOR_3]"), std::string::npos);
    EXPECT_EQ(visores.uno(3), nullptr);
    EXPECT_EQ(visores.uno(0), nullptr);
}

TEST(Visores, nuevoTomaElSiguienteNumeroSalvoDuplicado) {
    Banco b;
    Visores visores = b.cargar(secciones(2));
    EXPECT_EQ(visores.nuevo(3001, ""), nullptr);
    EXPECT_EQ(visores.nuevo(3001, "otro"), nullptr);
    EXPECT_EQ(visores.nuevo(0, "V2"), nullptr);
    ASSERT_NE(visores.nuevo(0, ""), nullptr);
    ASSERT_NE(visores.nuevo(0, ""), nullptr) << "port 0 and no caption are nobody's";
    EXPECT_EQ(visores.cuantos(), 4);
    EXPECT_EQ(b.e.valor("VISOR_4", "Port"), "0");
    EXPECT_EQ(b.e.valor("VISOR_4", "ModoBulk"), "4");
    EXPECT_EQ(b.e.ini().find("[VISOR_0]"), std::string::npos);
    while (visores.cuantos() < 64) ASSERT_NE(visores.nuevo(0, ""), nullptr);
    EXPECT_EQ(visores.nuevo(0, ""), nullptr);
    EXPECT_EQ(b.e.ini().find("[VISOR_65]"), std::string::npos);
}

TEST(Visores, unaOperacionEsUnSoloReemplazoDelArchivo) {
    Banco b;
    Visores visores = b.cargar(secciones(64));
    const int antes = b.e.archivos.reemplazos;
    visores.eliminar(1);
    b.e.perfil.ocio(true);
    EXPECT_EQ(b.e.archivos.reemplazos, antes + 1);
}

TEST(diseñoVisor, tieneOmisionesYLimites) {
    struct Caso {
        const char* ini;
        int ancho;
        int ajuste;
        float ratio;
    };
    const Caso casos[] = {
        {"", 2, 2, 0.95F},
        {"anchoEtiqueta=12\r\najusteEtiqueta=-3\r\nratioAlturas=1.5", 6, 0, 1.5F},
        {"anchoEtiqueta=-3\r\najusteEtiqueta=9\r\nratioAlturas=0,5", 0, 2, 0.5F},
        {"anchoEtiqueta=x\r\nratioAlturas=x", 2, 2, 0.95F},
    };
    for (const Caso& c : casos) {
        EntornoDoble e;
        e.ini(std::string("[VISORES]\r\n") + c.ini + "\r\n");
        const diseñoVisor d(e.entorno);
        EXPECT_EQ(d.anchoEtiqueta(), c.ancho) << c.ini;
        EXPECT_EQ(d.ajusteEtiqueta(), c.ajuste) << c.ini;
        EXPECT_EQ(d.ratioAlturas(), c.ratio) << c.ini;
        EXPECT_EQ(d.colorFondoEtiqueta(), 0xFF0000);
        EXPECT_EQ(d.formatoPeso(), "####0");
    }
}

TEST(diseñoVisor, cadaEscrituraGuardaTodaLaSeccion) {
    EntornoDoble e;
    diseñoVisor d(e.entorno);
    for (const float negado : {0.1F, 1.0F, 0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
        d.ratioAlturas(negado);
        EXPECT_EQ(e.ini(), "") << negado;
    }
    d.ratioAlturas(0.45F);
    d.anchoEtiqueta(7);
    d.colorTextoPeso(ROJO);
    EXPECT_EQ(e.ini(),
              "[VISORES]\r\nanchoEtiqueta=6\r\najusteEtiqueta=2\r\nfondoEtiqueta=FF0000\r\ntextoEtiqueta=FFFFFF\r\n"
              "fondoPeso=FFFFFF\r\ntextoPeso=0000FF\r\nformatoPeso=####0\r\nratioAlturas=0,45\r\n");
}

}  // namespace
}  // namespace sorvanel
