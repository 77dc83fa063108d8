#include "recursos.h"

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
// One of the list of all handles; before the first stands how many there are, in the room of a pointer.
struct EntradaManejador {
    ULONG duena;
    UCHAR clase;
    UCHAR marcas;
    USHORT valor;
    void* objeto;
    ULONG acceso;
};
constexpr auto MANEJADORES_DE_TODOS = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr std::size_t ENTRADAS = 65536;
constexpr std::size_t LUGAR_TABLA = 0xF8;  // of its address, in a 64-bit PEB

struct Cuenta {
    long gdi, user, manejadores;
    bool operator==(const Cuenta&) const = default;
};

Cuenta contar() {
    const HANDLE propio = GetCurrentProcess();
    return {objetosGDI(propio), objetosUSER(), manejadores(propio)};
}

}  // namespace

long objetosGDI(HANDLE proceso) {
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

long objetosUSER() {
    constexpr std::uintptr_t PRIMERO = 0x20;
    std::vector<HMENU> relleno;
    long vivos = -1;
    while (vivos < 0) {
        const HMENU menu = CreateMenu();
        if (menu == nullptr) break;
        const auto valor = reinterpret_cast<std::uintptr_t>(menu);
        const bool nueva = (valor >> 16U & 0xFFFFU) == 1;
        const auto indice = static_cast<long>(((valor & 0xFFFFU) - PRIMERO) / 2);
        if (nueva) vivos = indice - static_cast<long>(relleno.size());
        relleno.push_back(menu);
    }
    for (const HMENU menu : relleno) DestroyMenu(menu);
    if (vivos < 0) throw std::runtime_error("the session's table of window objects is full");
    return vivos;
}

long manejadores(HANDLE proceso) {
    std::vector<char> lista(1U << 20U);
    ULONG hacenFalta = 0;
    while (true) {
        const NTSTATUS resultado =
            NtQuerySystemInformation(MANEJADORES_DE_TODOS, lista.data(), static_cast<ULONG>(lista.size()), &hacenFalta);
        if (resultado >= 0) break;
        if (lista.size() > 64U << 20U) throw std::runtime_error("no list of handles");
        lista.resize(lista.size() * 2);
    }
    const auto cuantos = static_cast<std::size_t>(*reinterpret_cast<const ULONG*>(lista.data()));
    const auto* const primera = reinterpret_cast<const EntradaManejador*>(lista.data() + sizeof(void*));
    const DWORD id = GetProcessId(proceso);
    return static_cast<long>(
        std::count_if(primera, primera + cuantos, [id](const EntradaManejador& una) { return una.duena == id; }));
}

bool cuentasFiables() {
    constexpr long MUESTRAS = 70;
    std::vector<HPEN> plumas;
    std::vector<HMENU> menus;
    std::vector<HANDLE> sucesos;
    const Cuenta antes = contar();
    for (long i = 0; i < MUESTRAS; ++i) {
        sucesos.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        plumas.push_back(CreatePen(PS_SOLID, static_cast<int>(i) + 1, RGB(1, 2, 3)));
        menus.push_back(CreateMenu());
    }
    const Cuenta con = contar();
    for (const HANDLE suceso : sucesos) CloseHandle(suceso);
    for (const HPEN pluma : plumas) DeleteObject(pluma);
    for (const HMENU menu : menus) DestroyMenu(menu);
    return con == Cuenta{antes.gdi + MUESTRAS, antes.user + MUESTRAS, antes.manejadores + MUESTRAS} &&
           contar() == antes;
}

}  // namespace sorvanel::medidas
