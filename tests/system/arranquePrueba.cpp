#include <gmock/gmock.h>
#include <windows.h>
// After windows.h, whose types it uses.
#include <winternl.h>

#include <algorithm>

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

// Wine plays that version of Windows for every program that starts now.
class WindowsFingido : private SinCopia {
public:
    WindowsFingido(DWORD mayor, DWORD menor, const std::wstring& compilacion) {
        poner(L"CurrentMajorVersionNumber", REG_DWORD, &mayor, sizeof mayor);
        poner(L"CurrentMinorVersionNumber", REG_DWORD, &menor, sizeof menor);
        poner(L"CurrentBuildNumber", REG_SZ, compilacion.c_str(), (compilacion.size() + 1) * sizeof(wchar_t));
    }
    ~WindowsFingido() {
        for (const Valor& viejo : m_viejos) {
            if (viejo.bytes.empty())
                RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, CLAVE, viejo.nombre);
            else
                RegSetKeyValueW(HKEY_LOCAL_MACHINE, CLAVE, viejo.nombre, viejo.tipo, viejo.bytes.data(),
                                static_cast<DWORD>(viejo.bytes.size()));
        }
    }

private:
    struct Valor {
        const wchar_t* nombre;
        DWORD tipo;
        std::string bytes;  // empty where there was none
    };
    static constexpr const wchar_t* CLAVE = L"Software\\Microsoft\\Windows NT\\CurrentVersion";

    void poner(const wchar_t* nombre, DWORD tipo, const void* dato, std::size_t largo) {
        DWORD cuanto = 64;
        std::string viejo(cuanto, '\0');
        const bool habia = RegGetValueW(HKEY_LOCAL_MACHINE, CLAVE, nombre, RRF_RT_ANY, nullptr, viejo.data(),
                                        &cuanto) == ERROR_SUCCESS;
        m_viejos.push_back({nombre, tipo, viejo.substr(0, habia ? cuanto : 0)});
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, CLAVE, nombre, tipo, dato, static_cast<DWORD>(largo));
    }

    std::vector<Valor> m_viejos;
};

// The build of Windows as a running program is told it, read out of its environment block; 0 if it cannot be read.
int compilacionVista(DWORD id) {
    constexpr std::ptrdiff_t LUGAR = 0x120;
    const HANDLE proceso = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
    PROCESS_BASIC_INFORMATION datos{};
    USHORT compilacion = 0;
    if (NtQueryInformationProcess(proceso, ProcessBasicInformation, &datos, sizeof datos, nullptr) >= 0)
        ReadProcessMemory(proceso, reinterpret_cast<const char*>(datos.PebBaseAddress) + LUGAR, &compilacion,
                          sizeof compilacion, nullptr);
    CloseHandle(proceso);
    return compilacion;
}

TEST(Arranque, PesaEnElWindowsMasViejoYEnElMasNuevo) {
    if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) GTEST_SKIP() << "Windows is what it is";
    EmisorUDP indicador;
    for (const auto& [mayor, menor, compilacion] : {std::tuple(6UL, 1UL, 7601), std::tuple(10UL, 0UL, 22000)}) {
        SCOPED_TRACE(compilacion);
        const int puerto = puertosLibres();
        Programa programa(Configuracion().reticula(1, 1).visor(puerto, 1, 1));
        const WindowsFingido fingido(mayor, menor, std::to_wstring(compilacion));
        ASSERT_TRUE(programa.marchar());
        EXPECT_EQ(compilacionVista(programa.proceso().id()), compilacion);
        EXPECT_TRUE(
            insistir([&] { indicador.enviar(puerto, trama(1'234'000)); }, [&] { return programa.peso(1) == "1234"; }));
        EXPECT_TRUE(programa.terminar());
    }
}

// Whoever has no monitor at negative coordinates has not tested them.
TEST(Arranque, CubreElMonitorEnUsoTambienALaIzquierdaDelPrimario) {
    const std::vector<MonitorVisto> todos = monitores();
    ASSERT_TRUE(std::any_of(todos.begin(), todos.end(), [](const MonitorVisto& uno) { return uno.area.left < 0; }));
    for (std::size_t enUso = 0; enUso <= todos.size(); ++enUso) {
        SCOPED_TRACE(enUso);
        // What is no monitor stands for the primary one.
        const auto esperado = std::find_if(todos.begin(), todos.end(), [&](const MonitorVisto& uno) {
            return enUso == 0 ? uno.primario : &uno == &todos[enUso - 1];
        });
        const std::string ini = Configuracion().seccion("MONITORES").clave("EnUso", std::to_string(enUso));
        Programa programa(ini);
        programa.arrancar();
        EXPECT_TRUE(esperar([&] {
            const RECT visto = lugar(programa.ventana());
            return EqualRect(&visto, &esperado->area) != FALSE;
        }));
        EXPECT_EQ(programa.leerINI(), ini);
        EXPECT_TRUE(programa.terminar());
    }
}

TEST(Arranque, UnArchivoRetenidoNoEsUnoVacio) {
    Programa programa(Configuracion().reticula(1, 1).visor(puertosLibres(), 1, 1));
    // As one that looks for viruses does, or one that makes a backup.
    const HANDLE retenido = CreateFileW(programa.rutaINI().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(retenido, INVALID_HANDLE_VALUE);
    programa.arrancar();
    EXPECT_TRUE(
        esperar([&] { return programa.texto(IdControl::picRep).starts_with("No se puede leer la configuración: "); }));
    EXPECT_FALSE(programa.seVe(IdControl::botOk) || programa.seVe(IdControl::botPau));
    CloseHandle(retenido);
    EXPECT_TRUE(programa.esperarVisible(IdControl::botPau));
}

// As the system does for an installer; nobody has answered the box that told of an error at the start.
TEST(Arranque, UnInstaladorLoCierraAunqueHayaUnAviso) {
    Programa programa(Configuracion()
                          .reticula(1, 1)
                          .visor(305, 1, 1)
                          .clave("Protocolo", "Pavona")
                          .seccion("PAVONA")
                          .clave("Port", "0"));
    programa.arrancar();
    ASSERT_NE(programa.caja().esperarTexto(), "");
    DWORD_PTR respuesta = 0;
    SendMessageTimeoutW(programa.ventana(), WM_QUERYENDSESSION, 0, ENDSESSION_CLOSEAPP, SMTO_NORMAL, PLAZO, &respuesta);
    ASSERT_EQ(respuesta, 1U);
    SendMessageTimeoutW(programa.ventana(), WM_ENDSESSION, 1, ENDSESSION_CLOSEAPP, SMTO_NORMAL, PLAZO, &respuesta);
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U);
}

TEST(Arranque, LaSegundaCopiaAcabaCalladaYLaDeOtroNombreConvive) {
    Programa programa, otra;  // not even a settings file
    programa.arrancar();
    otra.arrancar();
    const Proceso segunda(programa.ejecutable());
    bool mostro = false;
    EXPECT_TRUE(esperar([&] {
        const std::vector<HWND> suyas = segunda.ventanas();
        mostro = mostro || std::any_of(suyas.begin(), suyas.end(), [](HWND una) { return seVe(una); });
        return !segunda.vivo();
    }));
    EXPECT_FALSE(mostro);
    EXPECT_EQ(segunda.esperarFin(0), 0U);
    // Such as "1.00A".
    EXPECT_THAT(programa.texto(IdControl::lbVer), testing::MatchesRegex(".*\\d\\.\\d\\d\\w"));
    EXPECT_TRUE(programa.terminar());
    EXPECT_TRUE(otra.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
