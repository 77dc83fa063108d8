#include "platform/win32/avisosWin.h"

#include "platform/win32/textoWin.h"

namespace sorvanel {

namespace {

// The window that the user is working with gets the focus back afterwards.
HWND laActiva(HWND siNo) {
    const HWND activa = GetActiveWindow();
    return activa && IsWindowVisible(activa) && IsWindowEnabled(activa) ? activa : siNo;
}

}  // namespace

AvisosWin::Apertura::Apertura(AvisosWin& avisos)
    : m_avisos(avisos), m_propietaria(laActiva(avisos.m_propietaria)), m_apagadas(m_propietaria) {
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
    MessageBoxW(apertura.propietaria(), ancho.c_str(), L"Sorvanel", icono | MB_OK);
}

}  // namespace sorvanel
