#include <gmock/gmock.h>

#include "configurar.h"

namespace sorvanel::pruebas {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

constexpr const char* MALA_MUERTE = "La ejecución anterior no terminó de forma ordenada: su última línea es de ";
constexpr std::size_t MAXIMO = 1'000'000;

class Registro : public Configurar {
protected:
    bool dice(const std::string& trozo) const {
        return esperar([&] { return programa.leerRegistro().find(trozo) != std::string::npos; });
    }
    // What is sent is seen.
    bool pesar(int kilos) {
        return insistir([&] { indicador.enviar(puerto, trama(kilos * 1000)); },
                        [&] { return programa.peso(1) == std::to_string(kilos); });
    }

    EmisorUDP indicador;
};

TEST_F(Registro, CuentaLaMananaSiguienteLoQuePaso) {
    const std::string quien = "Visor #1 (Tolva Ñ): ", seca = quien + "sin datos: UDP " + std::to_string(puerto);
    programa.escribirINI("\xEF\xBB\xBF" +
                         std::string(Configuracion().reticula(1, 1).visor(puerto, 1, 1).clave("Etiqueta", "Tolva Ñ")));
    ASSERT_TRUE(programa.marchar());
    ASSERT_TRUE(pesar(5));
    EXPECT_TRUE(dice(seca + ", nada recibido\r\n"));
    ASSERT_TRUE(pesar(6));
    EXPECT_TRUE(dice(quien + "con datos de nuevo tras "));
    ASSERT_TRUE(programa.terminar());
    const std::string bien = programa.leerRegistro();
    const std::string hora = "\\d\\d\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\D\\d\\d:\\d\\d ";
    EXPECT_THAT(bien.substr(0, bien.find("\r\n")), MatchesRegex("\xEF\xBB\xBF" + hora + "Inicio: Sorvanel .*"));
    const std::size_t fin = bien.rfind("\r\n", bien.size() - 3);
    EXPECT_THAT(bien.substr(fin), MatchesRegex("\r\n" + hora + "Fin: ventana cerrada.*\r\n"));
    // What was killed is found out by the next one; what ended well is not.
    ASSERT_TRUE(programa.marchar());
    EXPECT_TRUE(dice("En marcha\r\n"));
    EXPECT_THAT(programa.leerRegistro(), AllOf(StartsWith(bien), Not(HasSubstr(MALA_MUERTE))));
    programa.proceso().matar();
    ASSERT_TRUE(programa.marchar());
    EXPECT_TRUE(dice(MALA_MUERTE));
}

TEST_F(Registro, NiLlenoNiRetenidoEstorba) {
    const std::string relleno(MAXIMO - 30, '-');
    programa.escribirINI(dosVisores);
    escribirArchivo(programa.rutaRegistro(), relleno);
    HANDLE retenido = CreateFileW(programa.rutaRegistro().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(retenido, INVALID_HANDLE_VALUE);
    ASSERT_TRUE(programa.marchar());
    ASSERT_TRUE(pesar(5));
    ASSERT_TRUE(programa.pausar());
    EXPECT_TRUE(programa.terminar());
    ASSERT_TRUE(programa.marchar());
    CloseHandle(retenido);
    EXPECT_TRUE(dice("En marcha\r\n")) << "it was only late";
    EXPECT_EQ(leerArchivo(programa.rutaRegistro(L"_anterior")), relleno);
    // Who only reads may keep it from being renamed.
    escribirArchivo(programa.rutaRegistro(), relleno);
    retenido = CreateFileW(programa.rutaRegistro().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(programa.pausar());
    EXPECT_TRUE(dice("En pausa\r\n"));
    EXPECT_LT(programa.leerRegistro().size(), 1000U);
    CloseHandle(retenido);
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Registro, SeAbreDesdeLosVisores) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
    visores.pulsar(IdControl::botRegistro);
    const std::wstring nombre = programa.rutaRegistro().substr(programa.rutaRegistro().find_last_of(L'\\') + 1);
    HWND editor = nullptr;
    EXPECT_TRUE(esperar([&] {
        for (HWND una = GetTopWindow(nullptr); una != nullptr; una = GetWindow(una, GW_HWNDNEXT))
            if (IsWindowVisible(una) && ancho(texto(una)).find(nombre) != std::wstring::npos) editor = una;
        return editor != nullptr;
    }));
    SendMessageTimeoutW(editor, WM_CLOSE, 0, 0, SMTO_NORMAL, PLAZO, nullptr);
}

}  // namespace
}  // namespace sorvanel::pruebas
