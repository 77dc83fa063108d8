#include "doubles/dialogoDoble.h"

#include <algorithm>

namespace sorvanel {

namespace {

std::u32string deUtf8(std::string_view texto) {
    std::u32string salida;
    for (std::size_t i = 0; i < texto.size();) {
        const auto primero = static_cast<unsigned char>(texto[i]);
        const std::size_t largo = primero < 0x80U ? 1 : primero < 0xE0U ? 2 : primero < 0xF0U ? 3 : 4;
        char32_t letra = largo == 1 ? primero : primero & (0xFFU >> (largo + 1));
        for (std::size_t k = 1; k < largo && i + k < texto.size(); ++k) {
            letra = letra << 6U | (static_cast<unsigned char>(texto[i + k]) & 0x3FU);
        }
        salida += letra;
        i += largo;
    }
    return salida;
}

std::string aUtf8(const std::u32string& texto) {
    std::string salida;
    for (const char32_t c : texto) {
        if (c < 0x80) {
            salida += static_cast<char>(c);
            continue;
        }
        const int resto = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        salida += static_cast<char>((0xFF00U >> static_cast<unsigned>(resto + 1) & 0xFFU) |
                                    c >> static_cast<unsigned>(6 * resto));
        for (int k = resto - 1; k >= 0; --k) {
            salida += static_cast<char>(0x80U | (c >> static_cast<unsigned>(6 * k) & 0x3FU));
        }
    }
    return salida;
}

}  // namespace

// ---- focus ----

void EstadoDialogo::enfocar(ControlComun* nuevo) {
    if (foco == nuevo) return;
    if (foco != nullptr) porValidar.push_back(foco);
    foco = nuevo;
    if (nuevo != nullptr) ControlComun::avisar(nuevo->m_alRecibirFoco);
}

void EstadoDialogo::asentar() {
    while (!porValidar.empty()) {
        ControlComun* const dejado = porValidar.front();
        porValidar.pop_front();
        // It may be gone, or have the focus again.
        if (dejado == foco || std::find(creados.begin(), creados.end(), dejado) == creados.end()) continue;
        if (dejado->validar() || std::find(creados.begin(), creados.end(), dejado) == creados.end()) continue;
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

// ---- text box ----

std::string CajaTextoDoble::texto() const {
    return aUtf8(m_texto);
}

void CajaTextoDoble::texto(const std::string& texto) {
    m_texto = deUtf8(texto);
    m_desde = m_hasta = 0;
}

void CajaTextoDoble::seleccionarTodo() {
    m_desde = 0;
    m_hasta = m_texto.size();
}

bool CajaTextoDoble::insertar(const std::u32string& texto) {
    std::u32string pasa;
    for (const char32_t c : texto) {
        const char32_t queda = m_filtro ? m_filtro(c) : c;
        if (queda != 0) pasa += queda;
    }
    if (m_maxima > 0) {
        const std::size_t quedan = m_texto.size() - (m_hasta - m_desde);
        pasa.resize(std::min(
            pasa.size(), static_cast<std::size_t>(m_maxima) - std::min(quedan, static_cast<std::size_t>(m_maxima))));
    }
    if (pasa.empty()) return false;
    m_texto.replace(m_desde, m_hasta - m_desde, pasa);
    m_desde = m_hasta = m_desde + pasa.size();
    avisar(m_alCambiar);
    return true;
}

bool CajaTextoDoble::escribir(std::string_view texto) {
    const auto estado = m_estado;
    if (!conFoco() && !irA()) return false;
    for (const char32_t c : deUtf8(texto)) {
        if (std::find(estado->creados.begin(), estado->creados.end(), this) == estado->creados.end()) break;
        insertar({c});
    }
    estado->asentar();
    return true;
}

bool CajaTextoDoble::pegar(std::string_view texto) {
    const auto estado = m_estado;
    if (!conFoco() && !irA()) return false;
    insertar(deUtf8(texto));
    estado->asentar();
    return true;
}

bool CajaTextoDoble::reescribir(std::string_view texto) {
    const auto estado = m_estado;
    if (!conFoco() && !irA()) return false;
    const bool habia = !m_texto.empty();
    m_texto.clear();
    m_desde = m_hasta = 0;
    if (habia && texto.empty()) avisar(m_alCambiar);
    return texto.empty() || escribir(texto);
}

void CajaTextoDoble::mover(Tecla tecla) {
    const bool hay = m_desde != m_hasta;
    if (tecla == Tecla::izquierda) {
        m_hasta = m_desde = hay || m_desde == 0 ? m_desde : m_desde - 1;
    } else if (tecla == Tecla::derecha) {
        m_desde = m_hasta = hay || m_hasta == m_texto.size() ? m_hasta : m_hasta + 1;
    }
}

bool CajaTextoDoble::pulsar(Tecla tecla) {
    const auto estado = m_estado;
    if (!conFoco() && !irA()) return false;
    const auto accion = m_alPulsarTecla;
    const bool tomada = accion && accion(tecla);
    if (!tomada) mover(tecla);
    estado->asentar();
    return tomada;
}

bool CajaTextoDoble::validar() {
    const auto accion = m_alValidar;
    return !accion || accion();
}

// ---- what is pressed or chosen ----

bool CasillaMarcaDoble::pulsar() {
    const auto estado = m_estado;
    if (!irA()) return false;
    m_marcada = !m_marcada;
    const bool hecho = avisar(m_alPulsar);
    estado->asentar();
    return hecho;
}

bool ListaDoble::elegir(int indice) {
    const auto estado = m_estado;
    if (!irA() || indice < 0 || indice >= static_cast<int>(textos.size())) return false;
    m_indice = indice;
    const bool hecho = avisar(m_alElegir);
    estado->asentar();
    return hecho;
}

bool ListaDoble::pulsar(Tecla tecla) {
    const auto estado = m_estado;
    if (!conFoco() && !irA()) return false;
    const auto accion = m_alPulsarTecla;
    const bool tomada = accion && accion(tecla);
    estado->asentar();
    return tomada;
}

bool RotuloDoble::pulsar() {
    const auto estado = m_estado;
    const bool hecho = alcanzable() && avisar(m_alPulsar);
    estado->asentar();
    return hecho;
}

bool BotonImagenDoble::pulsar() {
    const auto estado = m_estado;
    const bool hecho = alcanzable() && avisar(m_alPulsar);
    estado->asentar();
    return hecho;
}

bool BotonImagenDoble::pulsarConTeclado() {
    return irA() && pulsar();
}

bool MarcoColorDoble::pulsar() {
    const auto estado = m_estado;
    if (!irA()) return false;
    const bool hecho = avisar(m_alPulsar);
    estado->asentar();
    return hecho;
}

bool BotonTextoDoble::pulsar() {
    const auto estado = m_estado;
    if (!irA()) return false;
    const bool hecho = avisar(m_alPulsar);
    estado->asentar();
    return hecho;
}

// ---- window ----

namespace {

// The surface that is handed out takes itself off the list when it goes.
class SuperficieAnotada : public SuperficieDoble {
public:
    SuperficieAnotada(std::shared_ptr<EstadoDialogo> estado, int clave) : m_estado(std::move(estado)), m_clave(clave) {
        m_estado->superficies[clave] = this;
    }
    ~SuperficieAnotada() override { m_estado->superficies.erase(m_clave); }

private:
    std::shared_ptr<EstadoDialogo> m_estado;
    int m_clave;
};

}  // namespace

FormularioDialogoDoble::FormularioDialogoDoble() {
    Fuente fuente;
    fuente.alto = 180;
    m_regla.fuente(fuente);
    m_fondo.fuente(fuente);
}

SuperficieDoble* FormularioDialogoDoble::superficie(IdControl id, int elemento) {
    const auto it = m_estado->superficies.find(numero(id, elemento));
    return it == m_estado->superficies.end() ? nullptr : it->second;
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

bool FormularioDialogoDoble::tabular(bool atras) {
    std::vector<ControlComun*> orden = recorrido();
    if (orden.empty()) return false;
    if (atras) std::reverse(orden.begin(), orden.end());
    const auto it = std::find(orden.begin(), orden.end(), m_estado->foco);
    return (it == orden.end() || it + 1 == orden.end() ? orden.front() : *(it + 1))->irA();
}

void FormularioDialogoDoble::pedirCierre() {
    const auto estado = m_estado;
    if (quienOye != nullptr) quienOye->alPedirCierre();
    estado->asentar();
}

std::unique_ptr<CajaTexto> FormularioDialogoDoble::crearCajaTexto(IdControl id, int elemento) {
    return std::make_unique<CajaTextoDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<CasillaMarca> FormularioDialogoDoble::crearCasilla(IdControl id, int elemento) {
    return std::make_unique<CasillaMarcaDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<Lista> FormularioDialogoDoble::crearLista(IdControl id, int elemento) {
    return std::make_unique<ListaDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<Rotulo> FormularioDialogoDoble::crearRotulo(IdControl id, int elemento) {
    return std::make_unique<RotuloDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<BotonImagen> FormularioDialogoDoble::crearBotonImagen(IdControl id, int elemento) {
    return std::make_unique<BotonImagenDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<MarcoColor> FormularioDialogoDoble::crearMarcoColor(IdControl id, int elemento) {
    return std::make_unique<MarcoColorDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<BotonTexto> FormularioDialogoDoble::crearBotonTexto(IdControl id, int elemento) {
    return std::make_unique<BotonTextoDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<Marco> FormularioDialogoDoble::crearMarco(IdControl id, int elemento) {
    return std::make_unique<MarcoDoble>(m_estado, numero(id, elemento));
}
std::unique_ptr<Superficie> FormularioDialogoDoble::crearSuperficie(IdControl id, int elemento) {
    return std::make_unique<SuperficieAnotada>(m_estado, numero(id, elemento));
}

// ---- makers ----

Color DialogosSistemaDoble::elegirColor(Color inicial) {
    coloresIniciales.push_back(inicial);
    if (colores.empty()) return inicial;
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

FormularioDialogoDoble* FabricaDialogosDoble::dialogo(IdControl id) const {
    const auto it = m_dialogos->find(numero(id));
    return it == m_dialogos->end() ? nullptr : it->second;
}

namespace {

class FormularioAnotado : public FormularioDialogoDoble {
public:
    using Registro = std::shared_ptr<std::map<int, FormularioDialogoDoble*>>;
    FormularioAnotado(Registro registro, int clave) : m_registro(std::move(registro)), m_clave(clave) {
        (*m_registro)[clave] = this;
    }
    ~FormularioAnotado() override { m_registro->erase(m_clave); }

private:
    Registro m_registro;
    int m_clave;
};

}  // namespace

std::unique_ptr<FormularioDialogo> FabricaDialogosDoble::crearDialogo(IdControl id) {
    return std::make_unique<FormularioAnotado>(m_dialogos, numero(id));
}

}  // namespace sorvanel
