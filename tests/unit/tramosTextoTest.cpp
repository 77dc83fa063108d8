#include "message/tramosTexto.h"

#include <gtest/gtest.h>

namespace sorvanel {
namespace {

using Textos = std::vector<std::string>;

Textos cortar(std::string_view texto) {
    const auto tramos = cortarEnTramos(texto);
    return {tramos.begin(), tramos.end()};
}

TEST(TramosTexto, cortaTrasLosBlancosYCadaTantasLetras) {
    const std::string n24(24, 'n');
    EXPECT_EQ(cortar(""), Textos{});
    EXPECT_EQ(cortar("hola"), Textos{"hola"});
    EXPECT_EQ(cortar("buenos días  a\ttodos "), (Textos{"buenos ", "días ", " ", "a\t", "todos "}));
    EXPECT_EQ(cortar(n24 + n24 + "nn"), (Textos{n24, n24, "nn"}));
    EXPECT_EQ(cortar(n24 + " n"), (Textos{n24, " ", "n"}));
}

// Whatever stands before it, the piece that holds its beginning holds all of it.
TEST(TramosTexto, loQueSeDibujaJuntoNoSeSepara) {
    const struct {
        const char* que;
        std::string texto;
    } CASOS[] = {
        {"two bytes", "É"},
        {"three bytes", "€"},
        {"four bytes, a surrogate pair in UTF-16", "\U0001F600"},
        {"accent after its letter", "e\u0301"},
        {"two accents", "o\u0323\u0302"},
        {"accent after a blank", " \u0301"},
        {"flag", "\U0001F1EA\U0001F1F8"},
        {"family of four", "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"},
        {"skin", "\U0001F44D\U0001F3FD"},
        {"keycap", "1\uFE0F\u20E3"},
        {"flag of a region", "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F"},
    };
    for (const auto& caso : CASOS) {
        for (std::size_t delante = 0; delante <= 50; ++delante) {
            const std::string antes(delante, 'x');
            const std::string todo = antes + caso.texto + std::string(30, 'y');
            std::string junto;
            for (const std::string& tramo : cortar(todo)) {
                const bool empieza = junto.size() <= delante && junto.size() + tramo.size() > delante;
                if (empieza) {
                    EXPECT_EQ(tramo.compare(delante - junto.size(), caso.texto.size(), caso.texto), 0)
                        << caso.que << " after " << delante;
                }
                junto += tramo;
            }
            EXPECT_EQ(junto, todo);
        }
    }
}

TEST(TramosTexto, lasBanderasVanDeDosEnDos) {
    const std::string a = "\U0001F1EA\U0001F1F8";
    const std::string b = "\U0001F1EB\U0001F1F7";
    std::string muchas;
    for (int i = 0; i < 15; ++i) muchas += a + b;
    const Textos tramos = cortar("x" + muchas);
    ASSERT_EQ(tramos.size(), 2U) << "each flag counts as one letter";
    EXPECT_EQ((tramos[0].size() - 1) % a.size(), 0U);
}

TEST(TramosTexto, loQueNoEsUTF8NoPierdeNada) {
    for (const std::string& texto : {std::string("\xC3"), std::string("a\xE2\x82 b\xFF\x80\x80\x80\xF0\x9F"),
                                     std::string(60, '\x80'), std::string(3, '\0')}) {
        std::string junto;
        const std::vector<char> justo(texto.begin(), texto.end());  // nothing may be read behind its end
        for (const std::string& tramo : cortar({justo.data(), justo.size()})) {
            EXPECT_LE(tramo.size(), 24U * 4);
            junto += tramo;
        }
        EXPECT_EQ(junto, texto);
    }
}

}  // namespace
}  // namespace sorvanel
