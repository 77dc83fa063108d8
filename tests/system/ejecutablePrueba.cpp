#include <gtest/gtest.h>
#include <windows.h>

#include <set>

#include "harness/sistema.h"

namespace sorvanel::pruebas {
namespace {

// The parts of an executable as the loader lays them in memory, nothing of it run.
class Imagen : private SinCopia {
public:
    explicit Imagen(const std::wstring& ruta)
        : m_modulo(LoadLibraryExW(ruta.c_str(), nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {}
    ~Imagen() { FreeLibrary(m_modulo); }

    bool hay() const { return m_modulo != nullptr; }
    template <class T>
    const T* en(LONG lugar) const {
        // The lowest bits of such a handle say how it was loaded.
        return reinterpret_cast<const T*>((reinterpret_cast<std::uintptr_t>(m_modulo) & ~std::uintptr_t{3}) +
                                          static_cast<std::uintptr_t>(lugar));
    }
    const IMAGE_NT_HEADERS64& cabecera() const { return *en<IMAGE_NT_HEADERS64>(en<IMAGE_DOS_HEADER>(0)->e_lfanew); }

private:
    HMODULE m_modulo;
};

TEST(Entrega, EsDeVentanasYNecesitaSoloLoQueWindowsTrae) {
    const std::wstring ruta = carpetaPropia() + L"\\" + ancho(SORVANEL_RELATIVO);
    EXPECT_LT(leerArchivo(ruta).size(), 3U * 1024 * 1024);
    const Imagen exe(ruta);
    ASSERT_TRUE(exe.hay());
    EXPECT_EQ(exe.cabecera().FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(exe.cabecera().OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
    // The same tree gives the same bytes only without the time of building in it.
    EXPECT_EQ(exe.cabecera().FileHeader.TimeDateStamp, 0U);

    const std::set<std::string> deWindows = {"advapi32", "comctl32", "comdlg32", "dwmapi", "gdi32",   "gdiplus",
                                             "imm32",    "kernel32", "msimg32",  "msvcrt", "ole32",   "oleacc",
                                             "oleaut32", "shell32",  "shlwapi",  "user32", "uxtheme", "version",
                                             "winmm",    "ws2_32",   "wtsapi32"};
    std::set<std::string> pedidas;
    const auto& tabla = exe.cabecera().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* una = exe.en<IMAGE_IMPORT_DESCRIPTOR>(static_cast<LONG>(tabla.VirtualAddress)); una->Name != 0;
         ++una) {
        std::string nombre = exe.en<char>(static_cast<LONG>(una->Name));
        for (char& letra : nombre) letra = static_cast<char>(letra >= 'A' && letra <= 'Z' ? letra + 32 : letra);
        pedidas.insert(nombre);
        EXPECT_TRUE(deWindows.contains(nombre.substr(0, nombre.find('.'))) || nombre.starts_with("api-ms-win-crt-"))
            << nombre;
    }
    EXPECT_TRUE(pedidas.contains("kernel32.dll"));
}

}  // namespace
}  // namespace sorvanel::pruebas
