#include "doubles/controlesDoble.h"

namespace sorvanel {

// ---- focus ----

void EstadoVentana::enfocar(ControlComun* nuevo) {
    if (foco == nuevo) return;
    if (foco != nullptr) porValidar.push_back(foco);
    foco = nuevo;
    if (nuevo != nullptr) ControlComun::avisar(nuevo->m_alRecibirFoco);
}

void EstadoVentana::asentar() {
    while (!porValidar.empty()) {
        ControlComun* const dejado = porValidar.front();
        porValidar.pop_front();
        // It may be gone, or have the focus again.
        if (dejado == foco || !vive(dejado) || dejado->validar() || !vive(dejado)) continue;
        enfocar(dejado);
        // The one that it is taken from was never used.
        porValidar.clear();
    }
}

ControlComun::ControlComun(std::shared_ptr<EstadoVentana> estado, int clave)
    : m_estado(std::move(estado)), m_clave(clave) {
    if (!m_estado->controles.insert_or_assign(clave, this).second) ++m_estado->clavesRepetidas;
    m_estado->creados.push_back(this);
    ++m_estado->controlesCreados;
}

ControlComun::~ControlComun() {
    perderFocoSiLoTiene();
    const auto it = m_estado->controles.find(m_clave);
    if (it != m_estado->controles.end() && it->second == this) m_estado->controles.erase(it);
    std::erase(m_estado->creados, this);
    std::erase(m_estado->porValidar, this);
    std::erase(m_estado->orden, this);
}

void ControlComun::perderFocoSiLoTiene() {
    if (!conFoco()) return;
    m_estado->foco = nullptr;
    ++m_estado->focosPerdidos;
}

bool ControlComun::avisar(std::function<void()> accion) {
    if (!accion) return false;
    accion();
    return true;
}

bool ControlComun::irA() {
    if (!alcanzable() || !enfocable()) return false;
    const auto estado = m_estado;
    estado->enfocar(this);
    estado->asentar();
    return estado->foco == this;
}

bool ControlComun::usar(bool conFoco, const std::function<bool()>& accion) {
    const auto estado = m_estado;
    if (conFoco ? !irA() : !alcanzable()) return false;
    const bool hecho = accion();
    estado->asentar();
    return hecho;
}

bool ControlComun::pulsar(Tecla tecla) {
    return usarConFoco([&] {
        const auto accion = m_alPulsarTecla;
        return accion && accion(tecla);
    });
}

// ---- text box ----

void CajaTextoDoble::texto(const std::string& texto) {
    std::string nuevo = aWindows1252(texto);
    if (nuevo == m_texto) return;
    m_texto = std::move(nuevo);
    m_desde = m_hasta = 0;
}

void CajaTextoDoble::seleccionarTodo() {
    m_desde = 0;
    m_hasta = m_texto.size();
}

void CajaTextoDoble::insertar(char octeto) {
    const char32_t caracter = static_cast<unsigned char>(octeto);
    const char32_t queda = m_filtro ? m_filtro(caracter) : caracter;
    const std::size_t quedan = m_texto.size() - (m_hasta - m_desde);
    if (queda == 0 || (m_maxima > 0 && quedan >= static_cast<std::size_t>(m_maxima))) return;
    m_texto.replace(m_desde, m_hasta - m_desde, 1, static_cast<char>(queda));
    m_hasta = ++m_desde;
    avisar(m_accion);
}

bool CajaTextoDoble::escribir(std::string_view texto) {
    return usarConFoco([&, estado = m_estado] {
        for (const char c : aWindows1252(texto)) {
            if (!estado->vive(this)) break;
            insertar(c);
        }
        return true;
    });
}

bool CajaTextoDoble::reescribir(std::string_view texto) {
    if (!conFoco() && !irA()) return false;
    const bool habia = !std::exchange(m_texto, {}).empty();
    m_desde = m_hasta = 0;
    if (habia && texto.empty()) avisar(m_accion);
    return texto.empty() || escribir(texto);
}

// ---- list ----

bool ListaDoble::elegir(int indice) {
    if (!vale(indice)) return false;
    return usar(true, [&] {
        m_indice = indice;
        return avisar(m_accion);
    });
}

}  // namespace sorvanel
