#include "message/clsMsg.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "message/tramosTexto.h"

namespace sorvanel {

namespace {

// With an accent above and a tail below, so that every line fits.
constexpr std::string_view MUESTRA_ALTURA = "WhyÉ";
constexpr float TWIPS_POR_PUNTO = 20;
constexpr float PUNTOS_MINIMOS = 4;
constexpr float PUNTOS_MAXIMOS = 400;
// A late tick is made up for, but the eye must not see a jump: no more than so many steps at once.
constexpr float PASOS_POR_TIC = 3;
// After this long without a tick what was missed is missed.
constexpr std::int64_t OLVIDO = 1000;  // milliseconds
// Slanted letters reach beyond their own width.
constexpr float SALIENTE = 0.5F;  // of the font's height

bool utilizable(const FuenteMensaje& f) {
    return !f.nombre.empty() && f.nombre.find(',') == std::string::npos && f.puntos >= PUNTOS_MINIMOS &&
           f.puntos <= PUNTOS_MAXIMOS;
}

Fuente aFuente(const FuenteMensaje& f) {
    return {f.nombre, f.puntos * TWIPS_POR_PUNTO, f.negrita, f.cursiva, f.subrayado};
}

}  // namespace

clsMsg::clsMsg(const comun& com, const Programa& programa, Fabrica& fabrica, const Reloj& reloj, MuelleMensaje& muelle)
    : m_com(com),
      m_programa(programa),
      m_reloj(reloj),
      m_muelle(muelle),
      m_franja(muelle.picMsg()),
      m_tim(fabrica.crearTemporizador()),
      m_ajustes(leerMensaje(com)) {
    m_tim->intervalo(INTERVALO);
    m_tim->alTic([this] { tim_tic(); });
    m_ajustes.fuente.puntos = std::clamp(m_ajustes.fuente.puntos, PUNTOS_MINIMOS, PUNTOS_MAXIMOS);
    if (!aplicarFuente(m_ajustes.fuente)) aplicarFuente(FuenteMensaje{});
    medirTexto();
    reiniciar();
    mostrarFranja();
}

clsMsg::~clsMsg() {
    m_tim->habilitado(false);
    m_franja.mostrar(false);
    m_muelle.alMostrarFranja(false);
}

void clsMsg::guardar() const {
    guardarMensaje(m_com, m_ajustes);
}

void clsMsg::mostrarFranja() {
    m_franja.leyenda(m_ajustes.texto);
    m_franja.mostrar(m_ajustes.enUso);
    m_muelle.alMostrarFranja(m_ajustes.enUso);
}

bool clsMsg::aplicarFuente(const FuenteMensaje& fuente) {
    if (!utilizable(fuente)) return false;
    m_franja.fuente(aFuente(fuente));
    const float alto = m_franja.medir(MUESTRA_ALTURA).alto;
    if (!(alto > 0)) {
        m_franja.fuente(aFuente(m_ajustes.fuente));
        return false;
    }
    m_muelle.acoplar(alto + TWIPS_POR_PIXEL);
    return true;
}

// Once a text and font: what a tick costs does not depend on the text's length.
void clsMsg::medirTexto() {
    m_tramos.clear();
    m_anchoTexto = 0;
    std::unordered_map<std::string_view, float> conocidos;
    for (const std::string_view tramo : cortarEnTramos(m_ajustes.texto, m_programa)) {
        const auto [hallado, nuevo] = conocidos.try_emplace(tramo, 0.0F);
        if (nuevo) hallado->second = m_franja.medir(tramo).ancho;
        m_tramos.push_back({tramo, m_anchoTexto, hallado->second});
        m_anchoTexto += hallado->second;
    }
}

void clsMsg::limpiarFranja() {
    m_franja.colorFondo(m_ajustes.colorFondo);
    m_franja.limpiar();
    m_siguiente = 0;
}

void clsMsg::reiniciar() {
    limpiarFranja();
    m_posicion = m_franja.lugar().ancho;
    m_recorrido = 0;
    m_inicio = m_reloj.ahora();
}

void clsMsg::pintarQuieto() {
    reiniciar();
    for (const Tramo& tramo : m_tramos) {
        const auto x = static_cast<float>(tramo.x);
        if (x >= m_franja.lugar().ancho) break;
        m_franja.imprimir(x, 0, tramo.texto, m_ajustes.colorTexto);
    }
}

void clsMsg::marcha() {
    if (!m_ajustes.enUso) return;
    m_enMarcha = true;
    mostrarDeNuevo();
}

void clsMsg::paro() {
    m_tim->habilitado(false);
    m_franja.limpiar();
    m_enMarcha = false;
}

// What runs begins anew; what does not shows nothing.
void clsMsg::mostrarDeNuevo() {
    m_tim->habilitado(m_enMarcha && desplaza() && !m_tramos.empty());
    if (m_enMarcha && !desplaza()) {
        pintarQuieto();
    } else {
        reiniciar();
    }
}

// The text or a colour is another. What scrolls goes on from where it is, so that whoever types sees it.
void clsMsg::retocar() {
    if (!m_tim->habilitado() || m_posicion + m_anchoTexto <= 0) {
        mostrarDeNuevo();
        return;
    }
    m_tim->habilitado(!m_tramos.empty());
    limpiarFranja();
    imprimirEntrantes(0);
}

void clsMsg::redisponer() {
    aplicarFuente(m_ajustes.fuente);
    medirTexto();
    mostrarDeNuevo();
}

void clsMsg::enUso(bool si) {
    m_ajustes.enUso = si;
    if (!si) paro();
    mostrarFranja();
    guardar();
}

void clsMsg::texto(const std::string& texto) {
    m_ajustes.texto = texto;
    medirTexto();
    m_franja.leyenda(texto);
    retocar();
    guardar();
}

void clsMsg::colorFondo(Color color) {
    m_ajustes.colorFondo = colorPintable(color);
    retocar();
    guardar();
}

void clsMsg::colorTexto(Color color) {
    m_ajustes.colorTexto = colorPintable(color);
    retocar();
    guardar();
}

bool clsMsg::letFont(const FuenteMensaje& fuente) {
    if (!aplicarFuente(fuente)) return false;
    m_ajustes.fuente = fuente;
    medirTexto();
    mostrarDeNuevo();
    guardar();
    return true;
}

void clsMsg::velocidad(std::int32_t pixeles) {
    if (pixeles == m_ajustes.velocidad) return;
    const bool estabaQuieto = !desplaza();
    m_ajustes.velocidad = pixeles;
    guardar();
    if (!m_enMarcha) return;
    if (estabaQuieto || !desplaza()) {
        mostrarDeNuevo();
    } else {
        // On at the new speed from where it is.
        m_recorrido = 0;
        m_inicio = m_reloj.ahora();
    }
}

// How far the text should have moved by now and has not, whole pixels of the strip.
float clsMsg::avanceDebido() {
    const std::int64_t ahora = m_reloj.ahora();
    const float paso = aTwips(static_cast<float>(m_ajustes.velocidad));  // every INTERVALO
    const auto pixel = m_franja.pixel();
    const auto objetivo = [&] { return static_cast<float>(ahora - m_inicio) * paso / INTERVALO; };
    float debido = objetivo() - m_recorrido;
    if (debido > paso * static_cast<float>(OLVIDO) / INTERVALO) {
        m_inicio = ahora - INTERVALO;
        m_recorrido = 0;
        debido = paso;
    }
    const float avance = std::floor(std::min(debido, paso * PASOS_POR_TIC) / pixel) * pixel;
    return std::clamp(avance, 0.0F, m_franja.lugar().ancho);
}

void clsMsg::tim_tic() {
    if (!desplaza()) {
        m_tim->habilitado(false);
        pintarQuieto();
        return;
    }
    const float avance = avanceDebido();
    if (avance <= 0) return;
    m_recorrido += avance;
    // Small numbers keep their fractions: begin the count anew before it grows.
    if (m_recorrido > aTwips(10000)) {
        const std::int64_t ahora = m_reloj.ahora();
        const auto milisegundos =
            static_cast<std::int64_t>(m_recorrido / aTwips(static_cast<float>(m_ajustes.velocidad)) * INTERVALO);
        m_recorrido -= static_cast<float>(milisegundos) * aTwips(static_cast<float>(m_ajustes.velocidad)) / INTERVALO;
        m_inicio = std::min(ahora, m_inicio + milisegundos);
    }
    m_franja.desplazar(avance);
    m_posicion -= avance;
    if (m_posicion + m_anchoTexto < 0) {
        reiniciar();
    } else {
        imprimirEntrantes(m_franja.lugar().ancho - avance);
    }
    m_franja.refrescar();
}

// The band that came free, from there to the right edge, and nothing left of it: what a piece shows
// already is not drawn twice.
void clsMsg::imprimirEntrantes(float desde) {
    const Rectangulo franja = m_franja.lugar();
    const Rectangulo banda{desde, 0, franja.ancho - desde, franja.alto};
    const float saliente = m_ajustes.fuente.puntos * TWIPS_POR_PUNTO * SALIENTE;
    while (m_siguiente < m_tramos.size()) {
        const Tramo& tramo = m_tramos[m_siguiente];
        if (m_posicion + tramo.x + tramo.ancho + saliente > desde) break;
        ++m_siguiente;
    }
    for (std::size_t i = m_siguiente; i < m_tramos.size(); ++i) {
        const auto x = static_cast<float>(m_posicion + m_tramos[i].x);
        if (x - saliente >= franja.ancho) break;
        m_franja.imprimirEn(banda, x, 0, m_tramos[i].texto, m_ajustes.colorTexto);
    }
}

}  // namespace sorvanel
