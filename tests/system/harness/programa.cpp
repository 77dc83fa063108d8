#include "harness/programa.h"

#include <stdexcept>

#include "harness/archivo.h"
#include "harness/esperar.h"
#include "harness/texto.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

std::wstring nombreNuevo() {
    static int siguiente = 0;
    return L"SorvanelPrueba" + std::to_wstring(GetCurrentProcessId()) + L"n" + std::to_wstring(++siguiente);
}

}  // namespace

Programa::Programa()
    : m_nombre(nombreNuevo()),
      m_carpeta(carpetaTemporal() + L"\\" + m_nombre),
      m_ajustes(carpetaComun() + L"\\" + m_nombre),
      m_ejecutable(m_carpeta + L"\\" + m_nombre + L".exe") {
    crearCarpeta(m_carpeta);
    const std::wstring original = carpetaPropia() + L"\\" + ancho(SORVANEL_RELATIVO);
    if (!CopyFileW(original.c_str(), m_ejecutable.c_str(), FALSE))
        throw std::runtime_error("cannot copy " + utf8(original));
}

Programa::Programa(const std::string& bytesINI) : Programa() {
    escribirINI(bytesINI);
}

Programa::~Programa() {
    m_proceso.reset();
    borrarCarpeta(m_ajustes);
    borrarCarpeta(m_carpeta);
}

std::wstring Programa::rutaINI() const {
    return m_ajustes + L"\\" + m_nombre + L".ini";
}

void Programa::escribirINI(const std::string& bytes) {
    crearCarpeta(m_ajustes);
    escribirArchivo(rutaINI(), bytes);
}

std::string Programa::leerINI() const {
    return leerArchivo(rutaINI());
}

std::string Programa::leerCopia() const {
    return leerArchivo(m_ajustes + L"\\" + m_nombre + L"_copia.ini");
}

void Programa::arrancar() {
    m_proceso = std::make_unique<Proceso>(m_ejecutable);
    // The first window of all may wait ten seconds for the desktop itself.
    esperar([this] { return (m_ventana = buscarVentana()) != nullptr || !m_proceso->vivo(); }, 3 * PLAZO);
    if (m_ventana == nullptr)
        throw std::runtime_error(m_proceso->vivo() ? "no window came" : "the program ended without a window");
}

bool Programa::terminar() {
    PostMessageW(m_ventana, WM_CLOSE, 0, 0);
    return m_proceso->esperarFin(PLAZO) == 0U;
}

// The main window is the one that holds the button bar.
HWND Programa::buscarVentana() const {
    for (const HWND ventana : m_proceso->ventanas())
        if (IsWindowVisible(ventana) && hijo(ventana, numero(IdControl::picBot)) != nullptr) return ventana;
    return nullptr;
}

HWND Programa::control(IdControl id, int elemento) const {
    return hijo(m_ventana, numero(id, elemento));
}

std::string Programa::texto(IdControl id, int elemento) const {
    const HWND ventana = control(id, elemento);
    return ventana == nullptr ? std::string() : pruebas::texto(ventana);
}

bool Programa::seVe(IdControl id, int elemento) const {
    return pruebas::seVe(control(id, elemento));
}

bool Programa::esperarVisible(IdControl id, int elemento) const {
    return esperar([=, this] { return seVe(id, elemento); });
}

bool Programa::esperarOculto(IdControl id, int elemento) const {
    return esperar([=, this] { return !seVe(id, elemento); });
}

bool Programa::esperarTexto(IdControl id, int elemento, std::string_view esperado) const {
    return esperar([=, this] { return texto(id, elemento) == esperado; });
}

void Programa::pulsar(IdControl id) {
    if (!esperarVisible(id)) throw std::runtime_error("button not visible: " + std::to_string(numero(id)));
    const HWND boton = control(id);
    const RECT sitio = lugar(boton), anterior = lugar(m_pulsado);
    if (boton != m_pulsado && EqualRect(&sitio, &anterior))
        esperar([this] { return GetTickCount64() - m_cuando > GetDoubleClickTime(); });
    pruebas::pulsar(boton);
    m_pulsado = boton;
    m_cuando = GetTickCount64();
}

}  // namespace sorvanel::pruebas
