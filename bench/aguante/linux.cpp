#include "linux.h"

#include <stdexcept>

#include "escena.h"
#include "harness/sistema.h"
#include "observado.h"

namespace sorvanel::medidas {
namespace {

constexpr int PLAZO_ORDEN = 60000;  // ms

}  // namespace

std::string rutaLinux(const std::wstring& ruta) {
    using Traducir = char*(__cdecl*)(const wchar_t*);
    const auto traducir = reinterpret_cast<Traducir>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char* const suya = traducir == nullptr ? nullptr : traducir(ruta.c_str());
    exigir(suya != nullptr, "no Linux path: this part needs Wine");
    std::string resultado = suya;
    HeapFree(GetProcessHeap(), 0, suya);
    return resultado;
}

// No process of Linux has a handle here: its end shows in a file.
int enLinux(const std::string& orden) {
    static int ordenes = 0;
    const std::wstring guion = pruebas::carpetaTemporal() + L"\\orden" + std::to_wstring(GetCurrentProcessId()) + L"n" +
                               std::to_wstring(++ordenes);
    const std::wstring fin = guion + L".fin";
    const std::string marca = "'" + rutaLinux(fin) + "'";
    pruebas::escribirArchivo(
        guion, "( " + orden + "\n) >/dev/null 2>&1\necho $? >" + marca + "~; mv " + marca + "~ " + marca + "\n");
    std::wstring linea = L"/bin/sh \"" + pruebas::ancho(rutaLinux(guion)) + L"\"";
    STARTUPINFOW inicio{};
    inicio.cb = sizeof inicio;
    PROCESS_INFORMATION nada{};
    exigir(CreateProcessW(L"Z:\\bin\\sh", linea.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &inicio, &nada) !=
               FALSE,
           "no program of Linux can be started");
    std::string codigo;
    const bool acabo = pruebas::esperar([&] { return !(codigo = pruebas::leerArchivo(fin)).empty(); }, PLAZO_ORDEN);
    DeleteFileW(guion.c_str());
    DeleteFileW(fin.c_str());
    exigir(acabo, "no end of: " + orden);
    return std::stoi(codigo);
}

void enLinuxBien(const std::string& orden) {
    exigir(enLinux(orden) == 0, "failed: " + orden);
}

bool somosRoot() {
    return enLinux("test \"$(id -u)\" = 0") == 0;
}

std::string procesoLinux(const pruebas::Programa& programa) {
    const std::string carpeta = Observado(programa.proceso().id(), programa.ejecutable()).carpeta();
    return carpeta.substr(carpeta.rfind('/') + 1);
}

void matarDeGolpe(const pruebas::Programa& programa, const std::string& numero) {
    enLinuxBien("kill -9 " + numero);
    exigir(programa.proceso().esperarFin(pruebas::PLAZO).has_value(), "it survives SIGKILL");
}

}  // namespace sorvanel::medidas
