#include "dialogs/cfgMensaje.h"

#include "doubles/pruebaDialogo.h"

namespace sorvanel {
namespace {

constexpr const char* EN_USO = "[MENSAJE]\r\nEnUso=Sí\r\nTexto=Hola\r\nVelocidad=4\r\n";

class CfgMensaje : public PruebaDialogo<cfgMensaje, Id::cfgMensaje> {
protected:
    std::string valor(const std::string& clave) { return e.valor("MENSAJE", clave); }

    // All that is seen or hidden with the check box.
    void esperarMarcos(bool visibles) {
        for (const IdControl id :
             {Id::frTxt, Id::frFnt, Id::frVel, Id::txTexto, Id::botFont, Id::botColorTxt, Id::frColorTxt,
              Id::botColorBak, Id::frColorBak, Id::lbVel, Id::imVelP, Id::imVelM}) {
            EXPECT_EQ(v().control(id)->seVe, visibles) << numero(id);
        }
        EXPECT_TRUE(v().control(Id::ckUsar)->seVe && v().control(Id::lbUsar)->seVe);
    }
};

TEST_F(CfgMensaje, laCasillaYSuRotuloUsanYDejanDeUsarElMensaje) {
    for (const bool porRotulo : {false, true}) {
        SCOPED_TRACE(porRotulo);
        abrir("[MENSAJE]\r\nTexto=Hola\r\n");
        const float alto = v().medidas.alto;
        const auto esperar = [&](bool enUso) {
            EXPECT_EQ(v().casilla(Id::ckUsar)->marcada(), enUso);
            esperarMarcos(enUso);
            EXPECT_EQ(v().medidas.alto > alto, enUso) << "room for what appears";
            EXPECT_EQ(mesa.mensaje().enMarcha(), enUso);
        };
        esperar(false);
        for (const bool usar : {true, false}) {
            EXPECT_TRUE(porRotulo ? v().rotulo(Id::lbUsar)->pulsar() : v().casilla(Id::ckUsar)->pulsar());
            esperar(usar);
            EXPECT_EQ(valor("EnUso"), usar ? "Sí" : "No");
            // The keyboard stands in what will be hidden; a label's click leaves it there.
            EXPECT_EQ(v().caja(Id::txTexto)->irA(), usar);
        }
    }
}

TEST_F(CfgMensaje, laVelocidadVaDeCeroAVeinte) {
    const struct {
        const char *velocidad, *unoMas, *unoMenos;
    } casos[] = {{"4", "5", "4"}, {"0", "1", "0"}, {"20", "20", "19"}, {"50", "50", "49"}, {"-3", "-2", "-2"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.velocidad);
        abrir(std::string("[MENSAJE]\r\nEnUso=Sí\r\nVelocidad=") + c.velocidad + "\r\n");
        EXPECT_EQ(v().rotulo(Id::lbVel)->texto(), c.velocidad);
        pulsar(Id::imVelP);
        EXPECT_EQ(valor("Velocidad"), c.unoMas);
        pulsar(Id::imVelM);
        EXPECT_EQ(valor("Velocidad"), c.unoMenos);
        EXPECT_EQ(v().rotulo(Id::lbVel)->texto(), c.unoMenos);
    }
}

TEST_F(CfgMensaje, elTextoSeCambiaAlTeclearYLaFranjaCorreMientrasEstaAbierto) {
    abrir(EN_USO);
    EXPECT_TRUE(mesa.mensaje().enMarcha());
    CajaTextoDoble* caja = v().caja(Id::txTexto);
    EXPECT_EQ(caja->texto(), "Hola");
    caja->reescribir("Año €");
    EXPECT_EQ(mesa.mensaje().texto(), "Año €");
    caja->reescribir("");
    EXPECT_EQ(mesa.mensaje().texto(), "");
    v().pedirCierre();
    EXPECT_FALSE(formulario.superficie(Id::picMsg)->visible());
}

TEST_F(CfgMensaje, laFuentePasaEnteraPorSuEleccion) {
    abrir("[MENSAJE]\r\nEnUso=Sí\r\nFont=Courier New,32,BxU\r\n");
    const auto elegir = [&] {
        EXPECT_TRUE(v().boton(Id::botFont)->pulsar());
        return valor("Font");
    };
    EXPECT_EQ(elegir(), "Courier New,32,BxU") << "cancelled";
    fabrica.eleccion.fuentes = {
        fabrica.eleccion.fuenteInicial, {"Arial", 18.5F, false, true, false}, {"Arial", 9000, true, false, false}};
    EXPECT_EQ(elegir(), "Courier New,32,BxU") << "what the choice began with";
    EXPECT_EQ(elegir(), "Arial,18.5,xIx");
    EXPECT_TRUE(e.avisos.textos.empty());
    EXPECT_EQ(elegir(), "Arial,18.5,xIx");
    ASSERT_EQ(e.avisos.textos.size(), 1U) << "refused, and told";
    EXPECT_NE(e.avisos.textos[0].find("Arial"), std::string::npos);
}

TEST_F(CfgMensaje, losColoresVanALoSuyo) {
    probarColor(Id::botColorTxt, Id::frColorTxt, "MENSAJE", "Color", "112233,");
    probarColor(Id::botColorBak, Id::frColorBak, "MENSAJE", "Color", "", ",445566");
}

}  // namespace
}  // namespace sorvanel
