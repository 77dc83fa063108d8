#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

TEST(Comun, LasRutasSiguenAlEjecutable) {
    EntornoDoble e;
    const comun c(e.entorno);
    EXPECT_EQ(c.rutaINI(), "/datos/Sorvanel/Sorvanel.ini");
    EXPECT_EQ(c.rutaCopia(), "/datos/Sorvanel/Sorvanel_copia.ini");
    EXPECT_EQ(e.archivos.carpetas.count("/datos/Sorvanel"), 1U);
    e.programa.nombre = "Otro";
    e.programa.base = "/otra/";
    EXPECT_EQ(c.rutaINI(), "/otra/Otro/Otro.ini");
}

TEST(Comun, PrepararSinSeccionDejaLaQueHabia) {
    EntornoDoble e;
    AccesorINI accesor = comun(e.entorno).abrir("VISOR_1");
    comun(e.entorno).prepararINI(accesor, "");
    EXPECT_EQ(accesor.seccion(), "VISOR_1");
    accesor.escribir("Port", "7");
    EXPECT_EQ(e.ini(), "[VISOR_1]\r\nPort=7\r\n");
}

TEST(Comun, ValorPorOmisionSegunSuTipo) {
    EntornoDoble e;
    const comun c(e.entorno);
    const struct {
        std::string guardado;
        std::int16_t corto;
        std::int32_t largo;
        std::string texto;
    } casos[] = {
        {"abc", 5, 5, "abc"},         {"12", 12, 12, "12"},   {"", 5, 5, "5"},
        {"40000", 5, 40000, "40000"}, {"1,5", 2, 2, "1,5"},   {"99999999999", 5, 5, "99999999999"},
        {"-3", -3, -3, "-3"},         {"\" x\"", 5, 5, " x"},
    };
    for (const auto& caso : casos) {
        e.ini("[S]\nk=" + caso.guardado + "\n");
        const AccesorINI accesor = c.abrir("S");
        EXPECT_EQ(c.valDflt(accesor, "k", std::int16_t{5}), caso.corto) << caso.guardado;
        EXPECT_EQ(c.valDflt(accesor, "k", std::int32_t{5}), caso.largo) << caso.guardado;
        EXPECT_EQ(c.valDflt(accesor, "k", "5"), caso.texto);
    }
}

TEST(Comun, Limita) {
    const struct {
        std::int16_t valor, superior, inferior, queda;
    } casos[] = {{9, 8, 1, 8}, {0, 8, 1, 1}, {8, 8, 1, 8}, {1, 8, 1, 1}, {5, 1, 8, 8}, {-32768, 6, 0, 0}};
    for (const auto& c : casos) {
        std::int16_t valor = c.valor;
        comun::limitar(valor, c.superior, c.inferior);
        EXPECT_EQ(valor, c.queda);
        std::optional<std::int16_t> quiza = c.valor;
        comun::vLimitar(quiza, c.superior, c.inferior);
        EXPECT_EQ(quiza, c.queda);
    }
    std::optional<std::int16_t> ausente;
    comun::vLimitar(ausente, 6, 1);
    EXPECT_EQ(ausente, std::nullopt);
}

TEST(Comun, ColoresComoTexto) {
    const struct {
        Color color;
        std::string texto;
    } casos[] = {{255, "0000FF"}, {0, "000000"}, {16711680, "FF0000"}, {0xABCDEF, "ABCDEF"}, {rgb(1, 2, 3), "030201"}};
    for (const auto& c : casos) {
        EXPECT_EQ(comun::Long2RGB(c.color), c.texto);
        EXPECT_EQ(comun::rgb2Long(c.texto), c.color);
    }
    // What must never be stored still gives six digits.
    EXPECT_EQ(comun::Long2RGB(-1), "FFFFFF");
    const struct {
        std::string texto;
        Color color;
    } leidos[] = {{"ff", 255},     {"12G4", 0x12}, {"", 0},          {"rojo", 0},          {"0x12", 0},
                  {"FFFF", 65535}, {"-1", 0},      {"123456789", 0}, {"0000000000FF", 255}};
    for (const auto& c : leidos) {
        EXPECT_EQ(comun::rgb2Long(c.texto), c.color) << c.texto;
    }
}

// The played clock and socket are relied on by every other test.
TEST(Dobles, ElRelojHaceLosTicsEnOrden) {
    EntornoDoble e;
    std::string orden;
    const auto lento = e.fabrica.crearTemporizador();
    auto rapido = e.fabrica.crearTemporizador();
    const std::int64_t inicio = e.reloj.ahora();
    const auto anota = [&](char c) { orden += c + std::to_string(e.reloj.ahora() - inicio) + " "; };
    lento->intervalo(25);
    rapido->intervalo(10);
    lento->alTic([&] {
        anota('L');
        rapido.reset();
    });
    rapido->alTic([&] { anota('R'); });
    e.reloj.avanzar(100);
    lento->habilitado(true);
    rapido->habilitado(true);
    e.reloj.avanzar(55);
    EXPECT_EQ(orden, "R110 R120 L125 L150 ");
    EXPECT_EQ(e.fabrica.temporizadores().size(), 1U);
}

struct Oyente : OyenteZocalo {
    std::string oido;
    std::unique_ptr<Zocalo> zocalo;
    void alConectar() override { oido += "conectado "; }
    void alFallar() override { oido += "fallo "; }
    void alCerrarse() override { oido += "cerrado "; }
    void alLlegarDatos() override {
        std::string pieza;
        zocalo->leer(pieza);
        oido += "<" + pieza + ">";
        if (pieza == "fin") {
            zocalo.reset();
        }
    }
};

TEST(Dobles, ElZocaloSoloCuentaLoQueEstaAbierto) {
    EntornoDoble e;
    Oyente a;
    Oyente b;
    a.zocalo = e.fabrica.crearZocalo(a);
    ZocaloDoble* za = e.fabrica.ultimoZocalo();
    b.zocalo = e.fabrica.crearZocalo(b);
    EXPECT_FALSE(za->llegar("nada"));
    EXPECT_FALSE(a.zocalo->enviar("x"));
    EXPECT_FALSE(a.zocalo->enlazar(65536));
    EXPECT_TRUE(a.zocalo->enlazar(3001));
    EXPECT_FALSE(b.zocalo->enlazar(3001));
    EXPECT_EQ(e.fabrica.enPuerto(3001), za);
    za->llegar("uno");
    EXPECT_TRUE(a.zocalo->conectar("equipo", 9084));
    za->lecturaMaxima = 2;
    EXPECT_FALSE(za->llegar("aun no"));
    za->conectado();
    za->llegar("abc");
    za->cerrarse();
    EXPECT_FALSE(za->fallar());
    EXPECT_EQ(a.oido, "<uno>conectado <ab><c>cerrado ");
    EXPECT_TRUE(b.zocalo->enlazar(3001));
    e.fabrica.enPuerto(3001)->llegar("fin");
    EXPECT_EQ(e.fabrica.zocalos().size(), 1U);
}

}  // namespace
}  // namespace sorvanel
