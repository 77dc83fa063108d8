#include <gmock/gmock.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <set>

#include "harness/archivo.h"
#include "harness/texto.h"

namespace sorvanel::pruebas {
namespace {

// Reads the parts of an executable that the loader reads.
class Ejecutable {
public:
    explicit Ejecutable(std::string bytes) : m_bytes(std::move(bytes)) {
        const auto dos = en<IMAGE_DOS_HEADER>(0);
        m_cabecera = en<IMAGE_NT_HEADERS64>(static_cast<std::size_t>(dos.e_lfanew));
        const std::size_t primera = static_cast<std::size_t>(dos.e_lfanew) +
                                    offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                                    m_cabecera.FileHeader.SizeOfOptionalHeader;
        for (std::size_t i = 0; i < m_cabecera.FileHeader.NumberOfSections; ++i)
            m_secciones.push_back(en<IMAGE_SECTION_HEADER>(primera + i * sizeof(IMAGE_SECTION_HEADER)));
    }

    std::size_t tamano() const { return m_bytes.size(); }
    const IMAGE_NT_HEADERS64& cabecera() const { return m_cabecera; }

    // Lower-case names of the libraries that it needs to start.
    std::set<std::string> bibliotecas() const {
        std::set<std::string> nombres;
        std::size_t lugar =
            posicion(m_cabecera.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
        for (;; lugar += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto importada = en<IMAGE_IMPORT_DESCRIPTOR>(lugar);
            if (importada.Name == 0) return nombres;
            std::string nombre = m_bytes.c_str() + posicion(importada.Name);
            std::transform(nombre.begin(), nombre.end(), nombre.begin(), [](char letra) {
                return letra >= 'A' && letra <= 'Z' ? static_cast<char>(letra + 32) : letra;
            });
            nombres.insert(nombre);
        }
    }

private:
    template <class T>
    T en(std::size_t lugar) const {
        if (lugar + sizeof(T) > m_bytes.size()) throw std::out_of_range("executable cut short");
        T valor;
        std::memcpy(&valor, m_bytes.data() + lugar, sizeof valor);
        return valor;
    }

    // From the address in memory to the place in the file.
    std::size_t posicion(DWORD direccion) const {
        for (const IMAGE_SECTION_HEADER& seccion : m_secciones)
            if (direccion >= seccion.VirtualAddress && direccion < seccion.VirtualAddress + seccion.SizeOfRawData)
                return direccion - seccion.VirtualAddress + seccion.PointerToRawData;
        throw std::out_of_range("address in no section");
    }

    std::string m_bytes;
    IMAGE_NT_HEADERS64 m_cabecera{};
    std::vector<IMAGE_SECTION_HEADER> m_secciones;
};

class Entrega : public testing::Test {
protected:
    Ejecutable exe{leerArchivo(carpetaPropia() + L"\\" + ancho(SORVANEL_RELATIVO))};
};

TEST_F(Entrega, NecesitaSoloLoQueWindowsTrae) {
    const std::set<std::string> deWindows = {
        "advapi32.dll", "comctl32.dll", "comdlg32.dll", "dwmapi.dll",  "gdi32.dll",  "gdiplus.dll",  "imm32.dll",
        "kernel32.dll", "msimg32.dll",  "msvcrt.dll",   "ole32.dll",   "oleacc.dll", "oleaut32.dll", "shell32.dll",
        "shlwapi.dll",  "user32.dll",   "uxtheme.dll",  "version.dll", "winmm.dll",  "ws2_32.dll",   "wtsapi32.dll"};
    const std::set<std::string> pedidas = exe.bibliotecas();
    EXPECT_TRUE(pedidas.contains("kernel32.dll"));
    for (const std::string& una : pedidas)
        EXPECT_TRUE(deWindows.contains(una) || una.starts_with("api-ms-win-crt-")) << una;
}

TEST_F(Entrega, EsPequenoYDeVentanas) {
    EXPECT_LT(exe.tamano(), 3U * 1024 * 1024);
    EXPECT_EQ(exe.cabecera().FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(exe.cabecera().OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
    // The same tree gives the same bytes only without the time of building in it.
    EXPECT_EQ(exe.cabecera().FileHeader.TimeDateStamp, 0U);
}

}  // namespace
}  // namespace sorvanel::pruebas
