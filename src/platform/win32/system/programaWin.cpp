#include "platform/win32/system/programaWin.h"

#include <windows.h>
#include <winsock2.h>
// After windows.h, whose types it uses.
#include <shlobj.h>

#include <array>
#include <utility>
#include <vector>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/system/manualWin.h"

namespace sorvanel {

namespace {

std::wstring rutaEjecutable() {
    std::wstring ruta(MAX_PATH, L'\0');
    while (true) {
        const DWORD largo = GetModuleFileNameW(nullptr, ruta.data(), static_cast<DWORD>(ruta.size()));
        if (largo < ruta.size()) {
            ruta.resize(largo);
            return ruta;
        }
        ruta.resize(ruta.size() * 2);
    }
}

std::string carpetaEspecial(int cual) {
    std::array<wchar_t, MAX_PATH> ruta{};
    return SHGetSpecialFolderPathW(nullptr, ruta.data(), cual, FALSE) ? aUtf8(ruta.data()) : std::string();
}

}  // namespace

std::string ProgramaWin::nombreEjecutable() const {
    std::wstring nombre = rutaEjecutable();
    nombre.erase(0, nombre.find_last_of(L"\\/") + 1);
    return aUtf8(nombre.substr(0, nombre.rfind(L'.')));
}

std::string ProgramaWin::carpetaBase() const {
    const std::string comun = carpetaEspecial(CSIDL_COMMON_APPDATA);
    return comun.empty() ? carpetaEspecial(CSIDL_LOCAL_APPDATA) : comun;
}

std::string ProgramaWin::separadorDecimal() const {
    std::array<wchar_t, 8> separador{};
    const int largo = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separador.data(),
                                      static_cast<int>(separador.size()));
    return largo > 1 ? aUtf8(separador.data()) : ",";
}

Version ProgramaWin::version() const {
    const std::wstring ruta = rutaEjecutable();
    DWORD cero = 0;
    std::vector<char> recurso(GetFileVersionInfoSizeW(ruta.c_str(), &cero));
    VS_FIXEDFILEINFO* fija = nullptr;
    UINT tamano = 0;
    if (recurso.empty() || !GetFileVersionInfoW(ruta.c_str(), 0, static_cast<DWORD>(recurso.size()), recurso.data()) ||
        !VerQueryValueW(recurso.data(), L"\\", reinterpret_cast<void**>(&fija), &tamano) || tamano < sizeof *fija)
        return {};
    return {HIWORD(fija->dwFileVersionMS), LOWORD(fija->dwFileVersionMS), HIWORD(fija->dwFileVersionLS)};
}

bool ProgramaWin::abrirManual(const std::string& apartado) const {
    std::wstring ruta = rutaEjecutable();
    ruta.replace(ruta.find_last_of(L"\\/") + 1, std::wstring::npos, L"manual.html");
    const DWORD atributos = GetFileAttributesW(ruta.c_str());
    if (atributos == INVALID_FILE_ATTRIBUTES || (atributos & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
    abrirManualAparte(std::move(ruta), aAncho(apartado));
    return true;
}

// Of a pair of surrogates the system says no more than that. What is a sign of its own, as "^" is, counts as a
// diacritic too.
bool ProgramaWin::esMarca(char32_t caracter) const {
    if (caracter > 0xFFFF) return false;
    const auto unidad = static_cast<wchar_t>(caracter);
    WORD clase = 0;
    if (!GetStringTypeW(CT_CTYPE3, &unidad, 1, &clase)) return false;
    const bool signoSuelto = (clase & C3_SYMBOL) != 0 && (clase & C3_NONSPACING) == 0;
    return !signoSuelto && (clase & (C3_NONSPACING | C3_DIACRITIC | C3_VOWELMARK)) != 0;
}

}  // namespace sorvanel
