#include <gtest/gtest.h>

#include "config/codificacion.h"
#include "config/perfilINI.h"

namespace sorvanel {
namespace {

using Texto = std::string;
using namespace std::string_view_literals;

TEST(PerfilINI, LeeLoQueElArchivoDice) {
    const PerfilINI perfil(
        "fuera=1\r\n"
        "[ Retícula \r\n"  // never closed: no section
        "[VISORES]\r\n"
        "formatoPeso = ##0 ; kg\n"
        "[Visor_1] ; first\n"
        "; Port=7\n"
        "# Port=8\n"
        "  port\t=  3001  \r"
        "Port=9\n"
        "citado=\"  dos  \"\n"
        "comilla=\"\n"
        "media=\"a\n"
        "doble=\"\"x\"\"\n"
        "igual=a=b\n"
        "duro=\xA0 x \xA0\n"
        "=sin nombre\n"
        "acentu\xC1=\xF1\x80\n"
        "por\xD7=x\n"
        "nulo=a\0b\n"
        "[VISOR_1]\n"
        "tarde=1\n"
        "[SOLA]\n"
        "ultima=x"sv);
    const std::map<Texto, std::map<Texto, Texto>> casos = {
        {"visores", {{"FORMATOPESO", "##0 ; kg"}}},
        {" Visor_1 ", {{" PORT ", "3001"}, {"citado", "  dos  "}, {"comilla", "\""}, {"media", "\"a"}}},
        {"VISOR_1", {{"doble", "\"x\""}, {"igual", "a=b"}, {"duro", "\u00A0 x \u00A0"}, {"nulo", "a b"}}},
        {"visor_1", {{"Acentuá", "ñ€"}, {"por\u00D7", "x"}, {"por\u00F7", "(no)"}}},
        {"Visor_1", {{"; Port", "(no)"}, {"# Port", "(no)"}, {"", "(no)"}, {"tarde", "(no)"}}},
        {"VISOR_10", {{"Port", "(no)"}}},
        {"", {{"fuera", "(no)"}}},
        {"SOLA", {{"ultima", "x"}}}};
    for (const auto& [seccion, claves] : casos) {
        for (const auto& [clave, valor] : claves) {
            EXPECT_EQ(perfil.leer(seccion, clave).value_or("(no)"), valor) << seccion << " / " << clave;
        }
    }
}

TEST(PerfilINI, CambiaSoloLoQueSeLeDice) {
    const struct {
        Texto antes, clave, valor, despues;
    } casos[] = {{"", "k", "1", "[S]\r\nk=1\r\n"},
                 {"\xEF\xBB\xBF", "k", "1", "\xEF\xBB\xBF[S]\r\nk=1\r\n"},
                 {"[S]", "k", "1", "[S]\r\nk=1\r\n"},
                 {"[A]\nx=1", "k", "1", "[A]\nx=1\r\n\r\n[S]\r\nk=1\r\n"},
                 {"; uno\n\n[A]\n\n", "k", "1", "; uno\n\n[A]\n\n[S]\r\nk=1\r\n"},
                 {"[S]\ra=0\r", "k", "1", "[S]\ra=0\rk=1\r\n"},
                 {"[s]\nK  = 0  \nz\n", "k", "1", "[s]\nK  = 1\nz\n"},
                 {"[S]\nk=0\nk=2\n[S]\nk=3\n", "k", "1", "[S]\nk=1\nk=2\n[S]\nk=3\n"},
                 {"[S]\na=0\n\n; de B\n[B]\n", "k", "1", "[S]\na=0\nk=1\r\n\n; de B\n[B]\n"},
                 {"[S]\nk=\xF1\n", "k", "\u00C1\u20AC", "[S]\nk=\xC1\x80\n"},
                 {"[S]\na=\xF1\x81\nk=\n", "k", "\u03A9", "\xEF\xBB\xBF[S]\na=\u00F1\u0081\nk=\u03A9\n"},
                 {"\xEF\xBB\xBF[S]\na=\xF1\xC3\n", "k", "\u00F1", "\xEF\xBB\xBF[S]\na=\xF1\xC3\nk=\u00F1\r\n"},
                 {"[S]\r\n", "k", "a\r\n[B]", "[S]\r\nk=a  [B]\r\n"},
                 {"[S]\r\n", "k", "a\n", "[S]\r\nk=\"a \"\r\n"},
                 {"[S]\r\n", "k", "", "[S]\r\nk=\r\n"},
                 {"[S]\nk =  \"1\" \n", "k", "1", "[S]\nk =  \"1\" \n"},  // the same value
                 // Names that would break the file.
                 {"x", "a=b", "1", "x"},
                 {"x", "[k", "1", "x"},
                 {"x", " ;k", "1", "x"},
                 {"x", "\t", "1", "x"},
                 {"x", "a\nb", "1", "x"}};
    for (const auto& c : casos) {
        PerfilINI perfil(c.antes);
        EXPECT_EQ(perfil.escribir("S", c.clave, c.valor), c.antes != c.despues) << c.despues;
        EXPECT_EQ(perfil.bytes(), c.despues);
    }
    PerfilINI perfil;
    EXPECT_FALSE(perfil.escribir("a]b", "k", "1"));
    EXPECT_FALSE(perfil.escribir("", "k", "1"));
    EXPECT_EQ(perfil.bytes(), "");
}

TEST(PerfilINI, Borra) {
    PerfilINI perfil("[A]\nk=1\nj=2\nK=3\n\n[B]\nx=1\n\n; de A\n; tambien\n[a]\nk=4\n[C]\n; dentro\n[D]\n");
    EXPECT_TRUE(perfil.borrarClave("a", "k"));
    EXPECT_FALSE(perfil.borrarClave("A", "k"));
    EXPECT_TRUE(perfil.borrarSeccion("b"));
    EXPECT_TRUE(perfil.borrarSeccion("C"));
    EXPECT_FALSE(perfil.borrarSeccion("C"));
    EXPECT_EQ(perfil.bytes(), "[A]\nj=2\n\n; de A\n; tambien\n[a]\nk=4\n[D]\n");
    EXPECT_TRUE(perfil.borrarSeccion("A"));
    EXPECT_EQ(perfil.bytes(), "; de A\n; tambien\n[D]\n");
    EXPECT_TRUE(perfil.escribir("A", "k", "5"));
    EXPECT_EQ(perfil.bytes(), "; de A\n; tambien\n[D]\n\r\n[A]\r\nk=5\r\n");
    // A display that is made and saved writes and deletes section 0 each time: the file must not grow.
    EXPECT_TRUE(perfil.borrarSeccion("A"));
    const std::size_t largo = perfil.bytes().size();
    perfil.escribir("A", "k", "5");
    perfil.borrarSeccion("A");
    EXPECT_EQ(perfil.bytes().size(), largo);
}

TEST(Codificacion, Windows1252) {
    const Texto utf8 = "a\u00F1\u20AC\u0178\u0081\u00A0\u00FF\u2019\u017D", bytes = "a\xF1\x80\x9F\x81\xA0\xFF\x92\x8E";
    EXPECT_EQ(aWindows1252(utf8), bytes);
    EXPECT_EQ(deWindows1252(bytes), utf8);
    EXPECT_TRUE(cabeEnWindows1252(utf8));
    for (const Texto fuera : {"\u0080", "\u0100", "\u03A9", "\U0001F600", "\uFEFF"}) {
        EXPECT_FALSE(cabeEnWindows1252(fuera)) << fuera;
    }
    EXPECT_EQ(aWindows1252("a\u03A9b"), "a?b");
}

TEST(Codificacion, LoQueNoEsUtf8SeTomaComoWindows1252) {
    const std::pair<Texto, Texto> casos[] = {{"\u00F1\u65E5\U0001F600", "\u00F1\u65E5\U0001F600"},
                                             {"a\xF1 b", "a\u00F1 b"},
                                             {"\xE2\x82", "\u00E2\u201A"},
                                             {"\xC0\x80", "\u00C0\u20AC"},            // overlong
                                             {"\xED\xA0\x80", "\u00ED\u00A0\u20AC"},  // surrogate
                                             {"\xF4\x90\x80\x80", "\u00F4\u0090\u20AC\u20AC"},
                                             {"\xF9\x90\x80\x80", "\u00F9\u0090\u20AC\u20AC"}};
    for (const auto& [texto, valido] : casos) EXPECT_EQ(utf8Valido(texto), valido);
}

}  // namespace
}  // namespace sorvanel
