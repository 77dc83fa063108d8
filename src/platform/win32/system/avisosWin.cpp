#include "platform/win32/system/avisosWin.h"

#include <string_view>

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* TITULO = L"Sorvanel";
constexpr int ID_TEXTO = 0xFFFF;  // what the system gives the text of its message boxes

// A box that says that.
struct Busqueda {
    const std::wstring& texto;
    std::wstring leido;
    HWND hallada = nullptr;

    explicit Busqueda(const std::wstring& dicho) : texto(dicho), leido(dicho.size() + 2, L'\0') {}
};

BOOL CALLBACK alHallar(HWND ventana, LPARAM dato) noexcept {
    auto& busqueda = *reinterpret_cast<Busqueda*>(dato);
    const HWND rotulo = GetDlgItem(ventana, ID_TEXTO);
    std::wstring& leido = busqueda.leido;
    if (!rotulo) return TRUE;
    const int largo = GetWindowTextW(rotulo, leido.data(), static_cast<int>(leido.size()));
    if (std::wstring_view(leido.data(), static_cast<std::size_t>(largo)) != busqueda.texto) return TRUE;
    busqueda.hallada = ventana;
    return FALSE;
}

// The window that the user is working with gets the focus back afterwards.
HWND laActiva(HWND siNo) {
    const HWND activa = GetActiveWindow();
    return activa && IsWindowVisible(activa) && IsWindowEnabled(activa) ? activa : siNo;
}

}  // namespace

VentanasApagadas::VentanasApagadas(HWND menosEsta) : m_menosEsta(menosEsta) {
    EnumThreadWindows(GetCurrentThreadId(), &VentanasApagadas::alHallar, reinterpret_cast<LPARAM>(this));
}

VentanasApagadas::~VentanasApagadas() {
    for (HWND una : m_ventanas) EnableWindow(una, TRUE);
}

BOOL CALLBACK VentanasApagadas::alHallar(HWND ventana, LPARAM dato) noexcept {
    auto* esta = reinterpret_cast<VentanasApagadas*>(dato);
    if (ventana == esta->m_menosEsta || !IsWindowVisible(ventana) || !IsWindowEnabled(ventana)) return TRUE;
    try {
        esta->m_ventanas.push_back(ventana);
    } catch (...) {
        return FALSE;
    }
    EnableWindow(ventana, FALSE);
    return TRUE;
}

AvisosWin::Apertura::Apertura(AvisosWin& avisos)
    : m_avisos(avisos),
      m_propietaria(laActiva(avisos.m_propietaria)),
      m_apagadas(m_propietaria),
      m_estilo(avisos.m_estilo) {
    ++m_avisos.m_abiertos;
}

void AvisosWin::critico(const std::string& texto) {
    mostrar(texto, MB_ICONERROR);
}

void AvisosWin::informacion(const std::string& texto) {
    mostrar(texto, MB_ICONINFORMATION);
}

void AvisosWin::mostrar(const std::string& texto, UINT icono) {
    const std::wstring ancho = aAncho(texto);
    const Apertura apertura(*this);
    if (!m_primero) m_primero = &ancho;
    MessageBoxW(apertura.propietaria(), ancho.c_str(), TITULO, icono | MB_OK);
    if (m_primero == &ancho) m_primero = nullptr;
}

// The system does not tell which window its box is; nothing else of ours says the same.
void AvisosWin::cerrar() {
    if (!m_primero) return;
    Busqueda busqueda(*m_primero);
    EnumThreadWindows(GetCurrentThreadId(), &alHallar, reinterpret_cast<LPARAM>(&busqueda));
    if (busqueda.hallada) PostMessageW(busqueda.hallada, WM_CLOSE, 0, 0);
}

}  // namespace sorvanel
