#include <gtest/gtest.h>

#include <string>
#include <string_view>

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
    const struct {
        Texto seccion, clave, valor;
    } casos[] = {
        {"visores", "FORMATOPESO", "##0 ; kg"},
        {"VISOR_1", "Port", "3001"},
        {" Visor_1 ", " PORT ", "3001"},
        {"VISOR_1", "citado", "  dos  "},
        {"VISOR_1", "comilla", "\""},
        {"VISOR_1", "media", "\"a"},
        {"VISOR_1", "doble", "\"x\""},
        {"VISOR_1", "igual", "a=b"},
        {"VISOR_1", "duro", "\u00A0 x \u00A0"},
        {"VISOR_1", "Acentuá", "ñ€"},
        {"", "fuera", "(no)"},
        {"VISOR_1", "; Port", "(no)"},
        {"VISOR_1", "", "(no)"},
        {"VISOR_1", "por\u00D7", "x"},
        {"VISOR_1", "por\u00F7", "(no)"},
        {"VISOR_1", "nulo", "a b"},
        {"VISOR_1", "tarde", "(no)"},
        {"SOLA", "ultima", "x"},
        {"VISOR_10", "Port", "(no)"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(perfil.leer(c.seccion, c.clave).value_or("(no)"), c.valor) << c.seccion << " / " << c.clave;
    }
}

TEST(PerfilINI, CambiaSoloLoQueSeLeDice) {
    const struct {
        Texto antes, clave, valor, despues;
    } casos[] = {
        {"", "k", "1", "[S]\r\nk=1\r\n"},
        {"\xEF\xBB\xBF", "k", "1", "\xEF\xBB\xBF[S]\r\nk=1\r\n"},
        {"[S]", "k", "1", "[S]\r\nk=1\r\n"},
        {"[A]\nx=1", "k", "1", "[A]\nx=1\r\n\r\n[S]\r\nk=1\r\n"},
        {"; uno\n\n[A]\n\n", "k", "1", "; uno\n\n[A]\n\n[S]\r\nk=1\r\n"},
        {"[s]\nK  = 0  \nz\n", "k", "1", "[s]\nK  = 1\nz\n"},
        {"[S]\nk=\n", "k", "1", "[S]\nk=1\n"},
        {"[S]\nk=0\nk=2\n[S]\nk=3\n", "k", "1", "[S]\nk=1\nk=2\n[S]\nk=3\n"},
        {"[S]\na=0\n\n; de B\n[B]\n", "k", "1", "[S]\na=0\nk=1\r\n\n; de B\n[B]\n"},
        {"[S]\nk=\xF1\n", "k", "\u00C1\u20AC", "[S]\nk=\xC1\x80\n"},
        {"[S]\na=\xF1\x81\nk=\n", "k", "\u03A9", "\xEF\xBB\xBF[S]\na=\u00F1\u0081\nk=\u03A9\n"},
        {"\xEF\xBB\xBF[S]\na=\xF1\xC3\n", "k", "\u00F1", "\xEF\xBB\xBF[S]\na=\xF1\xC3\nk=\u00F1\r\n"},
        {"[S]\r\n", "k", "a\r\n[B]", "[S]\r\nk=a  [B]\r\n"},
        {"[S]\r\n", "k", "a\n", "[S]\r\nk=\"a \"\r\n"},
        {"[S]\r\n", "k", "", "[S]\r\nk=\r\n"},
        // Nothing changes: the same value, or a name that would break the file.
        {"[S]\nk =  \"1\" \n", "k", "1", "[S]\nk =  \"1\" \n"},
        {"x", "a=b", "1", "x"},
        {"x", "[k", "1", "x"},
        {"x", " ;k", "1", "x"},
        {"x", "\t", "1", "x"},
        {"x", "a\nb", "1", "x"},
    };
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

TEST(PerfilINI, ElValorVuelveComoSeDio) {
    for (const Texto valor : {" a", "a\t", "\"", "\"\"", "\"a\"", "\"a\" b", " \"a\" ", " ", ";x", "[x]", "a=b",
                              "####0", "\u00A0a\u00A0", "2,3", "\u65E5", "\U0001F600"}) {
        PerfilINI perfil("[S]\nk=0\nz=1\n");
        perfil.escribir("S", "k", valor);
        const PerfilINI otro(perfil.bytes());
        EXPECT_EQ(otro.leer("S", "k"), valor);
        EXPECT_EQ(otro.leer("S", "z"), "1");
        EXPECT_FALSE(perfil.escribir("S", "k", valor)) << valor;
    }
}

TEST(PerfilINI, Borra) {
    PerfilINI perfil("[A]\nk=1\nj=2\nK=3\n\n[B]\nx=1\n\n; de A\n; tambien\n[a]\nk=4\n[C]\n; dentro\n[D]\n");
    EXPECT_TRUE(perfil.borrarClave("a", "k"));
    EXPECT_EQ(perfil.leer("A", "k"), std::nullopt);
    EXPECT_FALSE(perfil.borrarClave("A", "k"));
    EXPECT_TRUE(perfil.borrarSeccion("b"));
    EXPECT_TRUE(perfil.borrarSeccion("C"));
    EXPECT_FALSE(perfil.borrarSeccion("C"));
    EXPECT_EQ(perfil.bytes(), "[A]\nj=2\n\n; de A\n; tambien\n[a]\nk=4\n[D]\n");
    EXPECT_TRUE(perfil.borrarSeccion("A"));
    EXPECT_EQ(perfil.bytes(), "; de A\n; tambien\n[D]\n");
    EXPECT_EQ(perfil.leer("A", "j"), std::nullopt);
    EXPECT_TRUE(perfil.escribir("A", "k", "5"));
    EXPECT_EQ(perfil.bytes(), "; de A\n; tambien\n[D]\n\r\n[A]\r\nk=5\r\n");
}

// A display that is made and saved writes and deletes section 0 each time.
TEST(PerfilINI, EscribirYBorrarNoHaceCrecerElArchivo) {
    PerfilINI perfil("[A]\r\nk=1");
    std::size_t primero = 0;
    for (int i = 0; i < 5; ++i) {
        perfil.escribir("VISOR_0", "Port", "1");
        perfil.borrarSeccion("VISOR_0");
        primero = i == 0 ? perfil.bytes().size() : primero;
    }
    EXPECT_EQ(perfil.bytes().size(), primero);
}

TEST(PerfilINI, LoQueNoSeTocaQuedaByteAByte) {
    Texto todos;
    for (int i = 0; i < 256; ++i) {
        todos += static_cast<char>(i);
    }
    for (const Texto& texto : {todos, "\xEF\xBB\xBF" + todos, Texto("\xFF\xFE[\0S\0]\0", 8),
                               Texto("\r\n\n\r=\r[]\n[\n]"), Texto(3, '\0'), Texto("\xEF\xBB")}) {
        EXPECT_EQ(PerfilINI(texto).bytes(), texto);
    }
}

TEST(Codificacion, IdaYVuelta) {
    const struct {
        Texto utf8, bytes;
    } casos[] = {
        {"a\u00F1\u20AC\u0178", "a\xF1\x80\x9F"}, {"\u0081\u00A0\u00FF", "\x81\xA0\xFF"}, {"\u2019\u017D", "\x92\x8E"}};
    for (const auto& c : casos) {
        EXPECT_EQ(aWindows1252(c.utf8), c.bytes);
        EXPECT_EQ(deWindows1252(c.bytes), c.utf8);
        EXPECT_TRUE(cabeEnWindows1252(c.utf8));
    }
    for (const Texto fuera : {"\u0080", "\u0100", "\u03A9", "\U0001F600", "\uFEFF"}) {
        EXPECT_FALSE(cabeEnWindows1252(fuera)) << fuera;
    }
    EXPECT_EQ(aWindows1252("a\u03A9b"), "a?b");
}

TEST(Codificacion, LoQueNoEsUtf8SeTomaComoWindows1252) {
    const struct {
        Texto texto, valido;
    } casos[] = {
        {"\u00F1\u65E5\U0001F600", "\u00F1\u65E5\U0001F600"},
        {"a\xF1"
         "b",
         "a\u00F1b"},
        {"\xC3", "\u00C3"},
        {"\xE2\x82", "\u00E2\u201A"},
        {"\xC0\x80", "\u00C0\u20AC"},            // overlong
        {"\xED\xA0\x80", "\u00ED\u00A0\u20AC"},  // surrogate
        {"\xF4\x90\x80\x80", "\u00F4\u0090\u20AC\u20AC"},
        {"\xF9\x90\x80\x80", "\u00F9\u0090\u20AC\u20AC"},
        {"\xFF", "\u00FF"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(utf8Valido(c.texto), c.valido);
    }
}

}  // namespace
}  // namespace sorvanel
