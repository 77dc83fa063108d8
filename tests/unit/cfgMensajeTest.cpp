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
        const bool aTope = v().boton(Id::imVelP)->pinta == AspectoBoton::agotado;
        EXPECT_EQ(aTope, std::stoi(c.velocidad) >= 20);
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

// At 1024 by 768 the band takes from the lower end what its letters need; a grid at the bottom has no room left.
TEST_F(CfgMensaje, loQueTapaLaFranjaSeDiceYSeAjusta) {
    const struct {
        const char *reticula, *texto;
        bool ajustable, cabe = true;
    } casos[] = {
        {"FilasColumnas=4x1", "El mensaje tapa la última fila", true},
        {"FilasColumnas=8x1\r\nPosicion=0;0,1\r\nDimensiones=1;0,9", "El mensaje tapa las 2 últimas filas", true},
        {"FilasColumnas=1x1\r\nPosicion=0;0,9\r\nDimensiones=1;0,05", "El mensaje tapa toda la parrilla", false},
        {"FilasColumnas=8x1\r\nPosicion=0;0,7\r\nDimensiones=1;0,3", "El mensaje tapa las 5 últimas filas", true,
         false},
        {"FilasColumnas=4x1\r\nDimensiones=1;0,5", "", false}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.reticula);
        abrir(std::string("[RETICULA]\r\n") + c.reticula +
              "\r\n[VISOR_1]\r\nPort=3001\r\nUbicacion=1,1\r\n[MENSAJE]\r\nTexto=Hola\r\nFont=Arial,72,xxx\r\n");
        const Control& tapa = *v().rotulo(Id::lbTapa);
        EXPECT_FALSE(tapa.visible()) << "not in use";
        const SuperficieDoble& visor = *formulario.superficie(Id::picRep, 1);
        EXPECT_TRUE(visor.visible()) << "seen behind the tool";
        v().casilla(Id::ckUsar)->pulsar();
        EXPECT_EQ(tapa.visible() ? v().rotulo(Id::lbTapa)->texto() : "", c.texto);
        EXPECT_EQ(v().boton(Id::botAjustar)->seVe, c.ajustable);
        if (!c.ajustable) continue;
        const float alto = visor.lugar().alto;
        EXPECT_TRUE(v().boton(Id::botAjustar)->pulsarConTeclado());
        EXPECT_EQ(visor.visible(), c.cabe);
        EXPECT_EQ(visor.lugar().alto < alto, c.cabe);
        e.cola.ejecutar();
        EXPECT_EQ(std::exchange(e.avisos.textos, {}).size(), c.cabe ? 0U : 1U);
        EXPECT_FALSE(tapa.visible() || v().boton(Id::botAjustar)->seVe);
        const Parrilla otra(e.com, e.pantalla());
        EXPECT_NEAR(otra.Top() + otra.Height(), formulario.superficie(Id::picMsg)->lugar().y, 1) << "saved";
    }
}

TEST_F(CfgMensaje, losColoresVanALoSuyo) {
    probarColor(Id::botColorTxt, Id::frColorTxt, "MENSAJE", "Color", "112233,");
    probarColor(Id::botColorBak, Id::frColorBak, "MENSAJE", "Color", "", ",445566");
}

}  // namespace
}  // namespace sorvanel
