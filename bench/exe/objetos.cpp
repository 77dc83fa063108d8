#include "objetos.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace sorvanel::medidas {
namespace {

// One entry of a 64-bit process's table.
struct EntradaGDI {
    std::uint64_t objeto;
    std::uint32_t duena;
    std::uint16_t unico;
    std::uint8_t tipo;  // 0: free
    std::uint8_t marcas;
    std::uint64_t usuario;
};
static_assert(sizeof(EntradaGDI) == 24);
constexpr std::size_t ENTRADAS = 65536;
constexpr std::size_t LUGAR_TABLA = 0xF8;  // of its address, in a 64-bit PEB

long gdiEnTabla(HANDLE proceso) {
    PROCESS_BASIC_INFORMATION basica{};
    if (NtQueryInformationProcess(proceso, ProcessBasicInformation, &basica, sizeof basica, nullptr) < 0)
        throw std::runtime_error("the program's PEB is not known");
    const char* const peb = reinterpret_cast<const char*>(basica.PebBaseAddress);
    const void* tabla = nullptr;
    std::vector<EntradaGDI> entradas(ENTRADAS);
    if (!ReadProcessMemory(proceso, peb + LUGAR_TABLA, &tabla, sizeof tabla, nullptr) ||
        !ReadProcessMemory(proceso, tabla, entradas.data(), entradas.size() * sizeof(EntradaGDI), nullptr))
        throw std::runtime_error("the table of graphic objects cannot be read");
    return static_cast<long>(
        std::count_if(entradas.begin(), entradas.end(), [](const EntradaGDI& una) { return una.tipo != 0; }));
}

std::uintptr_t valor(HMENU menu) {
    return reinterpret_cast<std::uintptr_t>(menu);
}

long userEnSesion() {
    constexpr std::uintptr_t PRIMERO = 0x20;
    std::vector<HMENU> relleno;
    long vivos = -1;
    while (vivos < 0) {
        const HMENU menu = CreateMenu();
        if (menu == nullptr) break;
        const bool nueva = (valor(menu) >> 16U & 0xFFFFU) == 1;
        const auto indice = static_cast<long>(((valor(menu) & 0xFFFFU) - PRIMERO) / 2);
        if (nueva) vivos = indice - static_cast<long>(relleno.size());
        relleno.push_back(menu);
    }
    for (const HMENU menu : relleno) DestroyMenu(menu);
    if (vivos < 0) throw std::runtime_error("the session's table of window objects is full");
    return vivos;
}

long gdiDe(HANDLE proceso) {
    return bajoWine() ? gdiEnTabla(proceso) : static_cast<long>(GetGuiResources(proceso, GR_GDIOBJECTS));
}

long userDe(HANDLE proceso) {
    return bajoWine() ? userEnSesion() : static_cast<long>(GetGuiResources(proceso, GR_USEROBJECTS));
}

}  // namespace

long ContadorObjetos::gdi() const {
    return gdiDe(m_programa.manejador());
}

long ContadorObjetos::user() const {
    return userDe(m_programa.manejador());
}

bool ContadorObjetos::fiable() {
    constexpr long MUESTRAS = 70;
    const HANDLE propio = GetCurrentProcess();
    const long gdiAntes = gdiDe(propio), userAntes = userDe(propio);
    std::vector<HPEN> plumas;
    std::vector<HMENU> menus;
    std::vector<HANDLE> sucesos;
    const long manejadoresAntes = manejadores(propio);
    for (long i = 0; i < MUESTRAS; ++i) {
        sucesos.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        plumas.push_back(CreatePen(PS_SOLID, static_cast<int>(i) + 1, RGB(1, 2, 3)));
        menus.push_back(CreateMenu());
    }
    const long gdiCon = gdiDe(propio), userCon = userDe(propio), manejadoresCon = manejadores(propio);
    for (const HANDLE suceso : sucesos) CloseHandle(suceso);
    for (const HPEN pluma : plumas) DeleteObject(pluma);
    for (const HMENU menu : menus) DestroyMenu(menu);
    return gdiCon == gdiAntes + MUESTRAS && userCon == userAntes + MUESTRAS &&
           manejadoresCon == manejadoresAntes + MUESTRAS && gdiDe(propio) == gdiAntes && userDe(propio) == userAntes &&
           manejadores(propio) == manejadoresAntes;
}

}  // namespace sorvanel::medidas
