#include "display/formatoPeso.h"

#include <gtest/gtest.h>

#include <limits>

namespace sorvanel {
namespace {

std::string formatear(std::string_view formato, std::int64_t milesimas) {
    std::string texto = "what was there before";
    FormatoPeso(formato).escribir(milesimas, texto);
    return texto;
}

TEST(FormatoPesoTest, Tabla) {
    struct Caso {
        std::string formato;
        std::int64_t milesimas;
        std::string texto;
    };
    const std::vector<Caso> grupos[] = {
        // The usual ones, rounding half away from zero.
        {{"####0", 12345, "12"}, {"####0", 0, "0"}, {"####0", 12499, "12"}, {"", 12500, "13"}},
        {{"0.0", 250, "0.3"}, {"0.00", 1005, "1.01"}, {"0", 999500, "1000"}, {"0.0", 99950, "100.0"}},
        {{"0000.0", 12345, "0012.3"}, {"0000.0", 1234567, "1234.6"}},
        // Digits without a place of their own.
        {{"0", 99999999, "100000"}, {"#0.00", 99999999, "100000.00"}, {"kg 0", 1234000, "kg 1234"}},
        {{".00", 12345, "12.35"}, {".", 5000, "5."}},
        // Optional digits.
        {{"####", 0, ""}, {"####", 400, ""}, {"####", 7000, "7"}, {"#.##", 0, "."}, {"#.##", 500, ".5"}},
        {{"0.#", 5000, "5."}, {"0.###", 5120, "5.12"}, {"0.0##", 5000, "5.0"}, {"0##", 5000, "005"}},
        {{"#0#", 5000, "05"}, {"0.#0", 5000, "5.00"}},
        // More decimals than a weight has.
        {{"0.00000", 1234, "1.23400"}, {"0.######", 1234, "1.234"}},
        // A comma is a point; only the first point counts; the result has no comma.
        {{"0000,0", 12345, "0012.3"}, {"#,##0", 12345, "12.345"}, {"0.0.0", 12345, "12.35"}},
        {{"0\",\"", 1000, "1."}, {"0\\,", 1000, "1."}},
        // Literals, between digits too.
        {{"##-##", 1234000, "12-34"}, {"##-##", 123456000, "1234-56"}, {"0.0 kg", 1000, "1.0 kg"}},
        {{"\"0#.\"0", 5000, "0#.5"}, {"\\0\\#0", 5000, "0#5"}, {"\\\"0", 5000, "\"5"}, {"\\\\0", 5000, "\\5"}},
        {{"0 t\u00e9\u20ac\U0001F600", 5000, "5 t\u00e9\u20ac\U0001F600"}, {"\\\u00e90", 5000, "\u00e95"}},
        {{"kg", 5000, "kg"}, {"\"\"", 5000, ""}, {"0;-0%E+00", 5000, "0;-0%E+05"}},
        // Unfinished.
        {{"0\"kg", 5000, "5kg"}, {"0\"", 5000, "5"}, {"0\\", 5000, "5"}},
        // Below zero, and at the limits.
        {{"0.0", -12345, "-12.3"}, {"0.0", -12350, "-12.4"}, {"0", -499, "0"}, {"0", -500, "-1"}},
        {{"0 kg", std::numeric_limits<std::int64_t>::min(), "-9223372036854776 kg"}},
        {{"0.000", std::numeric_limits<std::int64_t>::max(), "9223372036854775.807"}},
        {{"0." + std::string(100, '0'), 1234, "1.234" + std::string(97, '0')}},
        {{std::string(1000, '0'), 1000, std::string(999, '0') + "1"}, {std::string(99999, '#'), 1000, "1"}},
        {{std::string(100001, '"'), 1000, ""}}};
    for (const std::vector<Caso>& grupo : grupos)
        for (const auto& [formato, milesimas, texto] : grupo)
            EXPECT_EQ(formatear(formato, milesimas), texto) << '[' << formato << "] " << milesimas;
}

}  // namespace
}  // namespace sorvanel
