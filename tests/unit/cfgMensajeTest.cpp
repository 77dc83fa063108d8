#include "dialogs/cfgMensaje.h"

#include <gtest/gtest.h>

#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/mesaDoble.h"

namespace sorvanel {
namespace {

constexpr const char* EN_USO = "[MENSAJE]\r\nEnUso=Sí\r\nTexto=Hola\r\nVelocidad=4\r\n";

// Notices whether the band was stopped before it was dropped.
class MesaAtenta : public MesaDoble {
public:
    using MesaDoble::MesaDoble;
    bool parado = false;
    void desmontarMesa() override {
        parado = !mensaje().enMarcha();
        MesaDoble::desmontarMesa();
    }
};

class CfgMensaje : public ::testing::Test {
protected:
    EntornoDoble e;
    FabricaDialogosDoble fabrica;
    MesaAtenta mesa{e};
    cfgMensaje dialogo{e.entorno, fabrica, mesa};

    void abrir(const std::string& ini) {
        dialogo.Descargar(true);
        e.ini("\xEF\xBB\xBF" + ini);
        dialogo.Mostrar();
        ASSERT_NE(fabrica.dialogo(IdControl::cfgMensaje), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(IdControl::cfgMensaje); }
    std::string valor(const std::string& clave) { return e.valor("MENSAJE", clave); }
    void pulsar(IdControl id, int veces = 1) {
        for (int i = 0; i < veces; ++i) ASSERT_TRUE(v().imagen(id)->pulsar());
    }

    // All that is seen or hidden with the check box.
    void esperarMarcos(bool visibles) {
        for (const IdControl id :
             {IdControl::frTxt, IdControl::frFnt, IdControl::frVel, IdControl::txTexto, IdControl::botFont,
              IdControl::botColorTxt, IdControl::frColorTxt, IdControl::botColorBak, IdControl::frColorBak,
              IdControl::lbVel, IdControl::imVelP, IdControl::imVelM}) {
            EXPECT_EQ(v().control(id)->seVe, visibles) << numero(id);
        }
        EXPECT_TRUE(v().control(IdControl::ckUsar)->seVe && v().control(IdControl::lbUsar)->seVe);
    }
};

TEST_F(CfgMensaje, laCasillaYSuRotuloUsanYDejanDeUsarElMensaje) {
    for (const bool porRotulo : {false, true}) {
        SCOPED_TRACE(porRotulo);
        abrir("[MENSAJE]\r\nTexto=Hola\r\n");
        const auto pulsarUsar = [&] {
            return porRotulo ? v().rotulo(IdControl::lbUsar)->pulsar() : v().casilla(IdControl::ckUsar)->pulsar();
        };
        esperarMarcos(false);
        EXPECT_FALSE(mesa.mensaje().enMarcha());
        const float alto = v().medidas.alto;
        EXPECT_TRUE(pulsarUsar());
        EXPECT_TRUE(v().casilla(IdControl::ckUsar)->marcada());
        esperarMarcos(true);
        EXPECT_GT(v().medidas.alto, alto) << "room for what appeared";
        EXPECT_EQ(valor("EnUso"), "Sí");
        EXPECT_TRUE(mesa.mensaje().enMarcha());
        // The keyboard stands in what will be hidden; a label's click leaves it there.
        EXPECT_TRUE(v().caja(IdControl::txTexto)->irA());
        EXPECT_TRUE(pulsarUsar());
        EXPECT_EQ(v().estado().focosPerdidos, 0);
        EXPECT_FALSE(v().casilla(IdControl::ckUsar)->marcada());
        esperarMarcos(false);
        EXPECT_EQ(v().medidas.alto, alto);
        EXPECT_EQ(valor("EnUso"), "No");
        EXPECT_FALSE(mesa.mensaje().enMarcha());
    }
}

TEST_F(CfgMensaje, laVelocidadVaDeCeroAVeinte) {
    const struct {
        const char* velocidad;
        const char *unoMas, *unoMenos;
    } casos[] = {{"4", "5", "4"}, {"0", "1", "0"}, {"20", "20", "19"}, {"50", "50", "49"}, {"-3", "-2", "-2"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.velocidad);
        abrir(std::string("[MENSAJE]\r\nEnUso=Sí\r\nVelocidad=") + c.velocidad + "\r\n");
        EXPECT_EQ(v().rotulo(IdControl::lbVel)->texto(), c.velocidad);
        pulsar(IdControl::imVelP);
        EXPECT_EQ(valor("Velocidad"), c.unoMas);
        pulsar(IdControl::imVelM);
        EXPECT_EQ(valor("Velocidad"), c.unoMenos);
    }
    abrir(EN_USO);
    pulsar(IdControl::imVelP, 30);
    EXPECT_EQ(v().rotulo(IdControl::lbVel)->texto(), "20");
    EXPECT_EQ(mesa.mensaje().velocidad(), 20);
    pulsar(IdControl::imVelM, 40);
    EXPECT_EQ(v().rotulo(IdControl::lbVel)->texto(), "0");
    EXPECT_EQ(valor("Velocidad"), "0");
}

TEST_F(CfgMensaje, elTextoSeCambiaAlTeclear) {
    abrir(EN_USO);
    CajaTextoDoble* caja = v().caja(IdControl::txTexto);
    EXPECT_EQ(caja->texto(), "Hola");
    caja->reescribir("Año €");
    EXPECT_EQ(mesa.mensaje().texto(), "Año €");
    EXPECT_EQ(valor("Texto"), "Año €");
    caja->reescribir("");
    EXPECT_EQ(mesa.mensaje().texto(), "");
}

TEST_F(CfgMensaje, laFranjaCorreMientrasEstaAbierto) {
    abrir(EN_USO);
    EXPECT_TRUE(mesa.mensaje().enMarcha());
    v().pedirCierre();
    EXPECT_TRUE(mesa.parado);
}

TEST_F(CfgMensaje, laFuentePasaEnteraPorSuEleccion) {
    abrir("[MENSAJE]\r\nEnUso=Sí\r\nFont=Courier New,32,BxU\r\n");
    const std::string antes = e.ini();
    BotonTextoDoble* boton = v().boton(IdControl::botFont);
    EXPECT_TRUE(boton->pulsar());
    EXPECT_EQ(e.ini(), antes) << "cancelled";
    const FuenteElegida& inicial = fabrica.eleccion.fuentesIniciales.back();
    EXPECT_EQ(inicial.nombre, "Courier New");
    EXPECT_EQ(inicial.puntos, 32);
    EXPECT_TRUE(inicial.negrita && !inicial.cursiva && inicial.subrayado);

    fabrica.eleccion.fuentes = {{"Georgia", 20, false, true, false}, {"Arial", 18.5F, false, false, true}};
    EXPECT_TRUE(boton->pulsar());
    EXPECT_EQ(valor("Font"), "Georgia,20,xIx");
    EXPECT_TRUE(boton->pulsar());
    EXPECT_EQ(valor("Font"), "Arial,18.5,xxU");
    EXPECT_TRUE(e.avisos.textos.empty());

    fabrica.eleccion.fuentes = {{"Arial", 9000, true, false, false}};
    EXPECT_TRUE(boton->pulsar());
    ASSERT_EQ(e.avisos.textos.size(), 1U) << "refused, and told";
    EXPECT_NE(e.avisos.textos[0].find("Arial"), std::string::npos);
    EXPECT_EQ(valor("Font"), "Arial,18.5,xxU");
}

TEST_F(CfgMensaje, losColoresVanALoSuyo) {
    const struct {
        IdControl boton, marco;
        Color inicial;
        const char* archivo;
    } casos[] = {{IdControl::botColorTxt, IdControl::frColorTxt, 0x445566, "112233,0000FF"},
                 {IdControl::botColorBak, IdControl::frColorBak, 0x112233, "0000FF,445566"}};
    for (const auto& c : casos) {
        for (const bool conMarco : {false, true}) {
            abrir("[MENSAJE]\r\nEnUso=Sí\r\nColor=112233,445566\r\n");
            EXPECT_EQ(v().color(c.marco)->color(), c.inicial);
            const auto pulsarColor = [&] {
                return conMarco ? v().color(c.marco)->pulsar() : v().boton(c.boton)->pulsar();
            };
            EXPECT_TRUE(pulsarColor());
            EXPECT_EQ(valor("Color"), "112233,445566") << "cancelled";
            fabrica.eleccion.colores = {ROJO};
            EXPECT_TRUE(pulsarColor());
            EXPECT_EQ(fabrica.eleccion.coloresIniciales.back(), c.inicial);
            EXPECT_EQ(valor("Color"), c.archivo);
            EXPECT_EQ(v().color(c.marco)->color(), ROJO);
        }
    }
}

}  // namespace
}  // namespace sorvanel
