#include "doubles/dialogoDoble.h"

#include <algorithm>

#include "config/codificacion.h"

namespace sorvanel {

// ---- focus ----

void EstadoDialogo::enfocar(ControlComun* nuevo) {
    if (foco == nuevo) return;
    if (foco != nullptr) porValidar.push_back(foco);
    foco = nuevo;
    if (nuevo != nullptr) ControlComun::avisar(nuevo->m_alRecibirFoco);
}

bool EstadoDialogo::vive(const ControlComun* control) const {
    return std::find(creados.begin(), creados.end(), control) != creados.end();
}

void EstadoDialogo::asentar() {
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

ControlComun::~ControlComun() {
    perderFocoSiLoTiene();
    const auto it = m_estado->controles.find(m_clave);
    if (it != m_estado->controles.end() && it->second == this) m_estado->controles.erase(it);
    std::erase(m_estado->creados, this);
    std::erase(m_estado->porValidar, this);
}

void ControlComun::perderFocoSiLoTiene() {
    if (!conFoco()) return;
    m_estado->foco = nullptr;
    ++m_estado->focosPerdidos;
}

void ControlComun::fijarVisible(bool visible) {
    seVe = visible;
    if (!visible) perderFocoSiLoTiene();
}

void ControlComun::fijarActivo(bool si) {
    activo = si;
    if (!si) perderFocoSiLoTiene();
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

// ---- text box ----

std::string CajaTextoDoble::texto() const {
    return deWindows1252(m_texto);
}

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
    avisar(m_alCambiar);
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
    if (habia && texto.empty()) avisar(m_alCambiar);
    return texto.empty() || escribir(texto);
}

bool CajaTextoDoble::pulsar(Tecla tecla) {
    return usarConFoco([&] {
        const auto accion = m_alPulsarTecla;
        return accion && accion(tecla);
    });
}

bool CajaTextoDoble::validar() {
    const auto accion = m_alValidar;
    return !accion || accion();
}

// ---- list ----

bool ListaDoble::elegir(int indice) {
    if (!vale(indice)) return false;
    return usar(true, [&] {
        m_indice = indice;
        return avisar(m_alElegir);
    });
}

bool ListaDoble::pulsar(Tecla tecla) {
    return usarConFoco([&] {
        const auto accion = m_alPulsarTecla;
        return accion && accion(tecla);
    });
}

// ---- window ----

FormularioDialogoDoble::FormularioDialogoDoble() {
    Fuente fuente;
    fuente.alto = 180;
    m_regla.fuente(fuente);
    m_fondo.fuente(fuente);
}

std::vector<ControlComun*> FormularioDialogoDoble::recorrido() const {
    std::vector<ControlComun*> orden;
    const auto& creados = m_estado->creados;
    for (Control* c : m_estado->orden) {
        const auto it = std::find_if(creados.begin(), creados.end(), [&](auto* u) { return u->comoControl() == c; });
        if (it != creados.end()) orden.push_back(*it);
    }
    for (ControlComun* c : creados) {
        if (std::find(orden.begin(), orden.end(), c) == orden.end()) orden.push_back(c);
    }
    std::erase_if(orden, [](const ControlComun* c) { return !c->alcanzable() || !c->enfocable(); });
    return orden;
}

void FormularioDialogoDoble::arrastrar() {
    if (quienOye != nullptr) quienOye->alArrastrar();
}

void FormularioDialogoDoble::pedirCierre() {
    const auto estado = m_estado;
    if (quienOye != nullptr) quienOye->alPedirCierre();
    estado->asentar();
}

// ---- choices ----

std::optional<Color> DialogosSistemaDoble::elegirColor(Color inicial) {
    coloresIniciales.push_back(inicial);
    if (colores.empty()) return std::nullopt;
    const Color elegido = colores.front();
    colores.pop_front();
    return elegido;
}

bool DialogosSistemaDoble::elegirFuente(FuenteElegida& fuente) {
    fuentesIniciales.push_back(fuente);
    if (fuentes.empty()) return false;
    fuente = fuentes.front();
    fuentes.pop_front();
    return true;
}

}  // namespace sorvanel
