#include <gtest/gtest.h>

#include <array>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

TEST(Comun, LasRutasSiguenAlEjecutable) {
    EntornoDoble e;
    const comun c(e.entorno);
    EXPECT_EQ(c.rutaINI(), "/datos/Sorvanel/Sorvanel.ini");
    EXPECT_EQ(e.archivos.carpetas.count("/datos/Sorvanel"), 1U);
    e.programa.nombre = "Otro";
    e.programa.base = "/otra/";
    EXPECT_EQ(c.rutaINI(), "/otra/Otro/Otro.ini");
    EXPECT_EQ(c.rutaCopia(), "/otra/Otro/Otro_copia.ini");
}

TEST(Comun, PrepararSinSeccionDejaLaQueHabia) {
    EntornoDoble e;
    AccesorINI accesor = comun(e.entorno).abrir("VISOR_1");
    comun(e.entorno).prepararINI(accesor, "");
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
        {"abc", 5, 5, "abc"},         {"12", 12, 12, "12"}, {"", 5, 5, "5"},
        {"40000", 5, 40000, "40000"}, {"-3", -3, -3, "-3"}, {"\" x\"", 5, 5, " x"},
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
    const std::array<std::int16_t, 4> casos[] = {
        {9, 8, 1, 8}, {0, 8, 1, 1}, {8, 8, 1, 8}, {5, 1, 8, 8}, {-32768, 6, 0, 0}};
    for (const auto& [dado, superior, inferior, queda] : casos) {
        std::optional<std::int16_t> valor = dado;
        comun::vLimitar(valor, superior, inferior);
        EXPECT_EQ(valor, queda);
    }
    std::optional<std::int16_t> ausente;
    comun::vLimitar(ausente, 6, 1);
    EXPECT_EQ(ausente, std::nullopt);
}

TEST(Comun, ColoresComoTexto) {
    const std::pair<std::string, Color> casos[] = {{"0000FF", 255}, {"FF0000", 0xFF0000}, {"030201", rgb(1, 2, 3)}};
    for (const auto& [texto, color] : casos) {
        EXPECT_EQ(comun::rgb2Long(texto), color);
        EXPECT_EQ(comun::Long2RGB(color), texto);
    }
    EXPECT_EQ(comun::Long2RGB(-1), "FFFFFF") << "what must never be stored still gives six digits";
    EXPECT_EQ(comun::rgb2Long("ff"), 255);
    EXPECT_EQ(comun::rgb2Long("12G4"), 0x12);
    EXPECT_EQ(comun::rgb2Long("0000000000FF"), 255);
    for (const char* nada : {"", "rojo", "0x12", "-1", "123456789"}) EXPECT_EQ(comun::rgb2Long(nada), 0) << nada;
}

}  // namespace
}  // namespace sorvanel
