#include "message/tramosTexto.h"

#include <gtest/gtest.h>

#include "doubles/sistemaDoble.h"

namespace sorvanel {
namespace {

using Textos = std::vector<std::string>;

Textos cortar(std::string_view texto) {
    const auto tramos = cortarEnTramos(texto, ProgramaDoble());
    return {tramos.begin(), tramos.end()};
}

TEST(TramosTexto, cortaTrasLosBlancosYCadaTantasLetras) {
    const std::string n24(24, 'n'), banderas = "\U0001F1EA\U0001F1F8\U0001F1EB\U0001F1F7";
    EXPECT_EQ(cortar(""), Textos{});
    EXPECT_EQ(cortar("buenos días  a\ttodos "), (Textos{"buenos ", "días ", " ", "a\t", "todos "}));
    EXPECT_EQ(cortar(n24 + n24 + "nn"), (Textos{n24, n24, "nn"}));
    EXPECT_EQ(cortar(n24 + " n"), (Textos{n24, " ", "n"}));
    // Each flag counts as one letter, and they go in twos.
    std::string doce;
    for (int i = 0; i < 12; ++i) doce += banderas;
    EXPECT_EQ(cortar(doce + banderas), (Textos{doce, banderas}));
    // Words from right to left stay together, but not without end.
    std::string hebreo;
    for (int i = 0; i < 100; ++i) hebreo += "\u05E9\u05DC\u05D5\u05DD ";
    EXPECT_EQ(cortar(hebreo).size(), 5U);
}

// Whatever stands before it, the piece that holds its beginning holds all of it.
TEST(TramosTexto, loQueSeDibujaJuntoNoSeSepara) {
    const std::map<std::string, std::string> casos = {
        {"two bytes", "É"},
        {"three bytes", "€"},
        {"four bytes", "\U0001F600"},
        {"two accents", "o\u0323\u0302"},
        {"accent after a blank", " \u0301"},
        {"flag", "\U0001F1EA\U0001F1F8"},
        {"family of four", "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"},
        {"skin", "\U0001F44D\U0001F3FD"},
        {"Thai vowel and tone", "\u0E01\u0E35\u0E48"},
        {"kana with its mark", "\u304B\u3099"},
        {"two Hebrew words", "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD"},
        {"three signs of a script that is little known", "\U00011107\U00011133\U00011122"},
        {"keycap", "1\uFE0F\u20E3"},
        {"flag of a region", "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F"}};
    for (const auto& [que, texto] : casos) {
        for (std::size_t delante = 0; delante <= 50; ++delante) {
            const std::string todo = std::string(delante, 'x') + texto + std::string(30, 'y');
            std::string junto;
            for (const std::string& tramo : cortar(todo)) {
                const std::size_t antes = junto.size();
                junto += tramo;
                if (antes > delante || junto.size() <= delante) continue;
                EXPECT_EQ(tramo.compare(delante - antes, texto.size(), texto), 0) << que << " after " << delante;
            }
            EXPECT_EQ(junto, todo);
        }
    }
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
