#include "dialogs/tallerDialogo.h"

#include <algorithm>
#include <cmath>

namespace sorvanel {

namespace {

// Round the text: what a control's own edge, its inner margin, its box, arrow or picture take.
constexpr float ALTO_ALREDEDOR = aTwips(9);
constexpr float ANCHO_ALREDEDOR_CAJA = aTwips(14);
constexpr float ANCHO_ALREDEDOR_BOTON = aTwips(24);
constexpr float ANCHO_MARCA = aTwips(26);
constexpr float ANCHO_FLECHA = aTwips(34);
constexpr float ANCHO_DIBUJO = aTwips(22);
constexpr float ANCHO_MARCO_COLOR = aTwips(48);

constexpr const char* LETRA = "Segoe UI";

// Measured at another moment the text may come out a pixel wider.
Tamano holgado(const MedidaTexto& medida) {
    return {std::ceil(medida.ancho) + TWIPS_POR_PIXEL, std::ceil(medida.alto)};
}

void nombrar(Control& control, const std::string& nombre, const std::string& sugerencia) {
    control.nombre(nombre);
    if (!sugerencia.empty()) control.sugerencia(sugerencia);
}

}  // namespace

void cederFoco(const std::vector<Control*>& unos, Control& otro) {
    if (std::any_of(unos.begin(), unos.end(), [](const Control* c) { return c->tieneFoco(); })) otro.enfocar();
}

Fuente fuenteTitulo() {
    return {LETRA, aTwips(20), true, false, false};
}

Fuente fuenteSubtitulo() {
    return {LETRA, aTwips(13), false, false, false};
}

Fuente fuenteGrupo() {
    return {LETRA, aTwips(14), true, false, false};
}

std::unique_ptr<Rotulo> TallerDialogo::rotulo(const std::string& texto) {
    return rotulo(IdControl::rotulo, m_rotulos++, texto);
}

std::unique_ptr<Rotulo> TallerDialogo::rotuloGrupo(const std::string& texto) {
    auto grupo = rotulo(texto);
    grupo->fuente(fuenteGrupo());
    grupo->colorTexto(COLOR_TITULO);
    return grupo;
}

template <typename Tipo>
std::unique_ptr<Tipo> TallerDialogo::hacer(IdControl id, int elemento) {
    auto nuevo = m_formulario.crear<Tipo>(id, elemento);
    nuevo->mostrar(!m_ocultos);
    return nuevo;
}

std::unique_ptr<Rotulo> TallerDialogo::rotulo(IdControl id, int elemento, const std::string& texto) {
    auto nuevo = hacer<Rotulo>(id, elemento);
    nuevo->texto(texto);
    return nuevo;
}

std::unique_ptr<Marco> TallerDialogo::marco(IdControl id, int elemento, const std::string& nombre) {
    auto nuevo = hacer<Marco>(id, elemento);
    nuevo->colorFondo(COLOR_PANEL);
    nuevo->nombre(nombre);
    return nuevo;
}

std::unique_ptr<CajaTexto> TallerDialogo::cajaTexto(IdControl id, int elemento, const std::string& nombre,
                                                    const std::string& sugerencia) {
    auto nueva = hacer<CajaTexto>(id, elemento);
    nombrar(*nueva, nombre, sugerencia);
    return nueva;
}

std::unique_ptr<CasillaMarca> TallerDialogo::casilla(IdControl id, int elemento, const std::string& texto,
                                                     const std::string& sugerencia) {
    auto nueva = hacer<CasillaMarca>(id, elemento);
    nueva->texto(texto);
    nombrar(*nueva, texto, sugerencia);
    return nueva;
}

std::unique_ptr<Lista> TallerDialogo::lista(IdControl id, int elemento, std::span<const std::string_view> textos,
                                            const std::string& nombre, const std::string& sugerencia) {
    auto nueva = hacer<Lista>(id, elemento);
    nueva->elementos(textos);
    nombrar(*nueva, nombre, sugerencia);
    return nueva;
}

std::unique_ptr<Boton> TallerDialogo::botonImagen(IdControl id, int elemento, Dibujo dibujo,
                                                  const std::string& nombre) {
    auto nuevo = hacer<Boton>(id, elemento);
    nuevo->estilo(EstiloBoton::imagen);
    nuevo->dibujo(dibujo);
    nuevo->nombre(nombre);
    return nuevo;
}

std::unique_ptr<MarcoColor> TallerDialogo::marcoColor(IdControl id, int elemento, const std::string& nombre) {
    auto nuevo = hacer<MarcoColor>(id, elemento);
    nuevo->nombre(nombre);
    return nuevo;
}

std::unique_ptr<Boton> TallerDialogo::botonTexto(IdControl id, int elemento, const std::string& texto,
                                                 const std::string& sugerencia) {
    auto nuevo = hacer<Boton>(id, elemento);
    nuevo->texto(texto);
    nombrar(*nuevo, texto, sugerencia);
    return nuevo;
}

float TallerDialogo::altoControl() const {
    return holgado(m_formulario.medir("0")).alto + ALTO_ALREDEDOR;
}

Tamano TallerDialogo::texto(std::string_view texto) const {
    return holgado(m_formulario.medir(texto));
}

Tamano TallerDialogo::textoCon(const Fuente& fuente, std::string_view texto) const {
    Superficie& fondo = m_formulario.fondo();
    fondo.fuente(fuente);
    return holgado(fondo.medir(texto));
}

Tamano TallerDialogo::textoGrupo(std::string_view texto) const {
    return textoCon(fuenteGrupo(), texto);
}

Tamano TallerDialogo::cajaTexto(std::string_view muestra) const {
    return {texto(muestra).ancho + ANCHO_ALREDEDOR_CAJA, altoControl()};
}

Tamano TallerDialogo::casilla(std::string_view texto) const {
    return {texto.empty() ? ANCHO_MARCA : this->texto(texto).ancho + ANCHO_MARCA, altoControl()};
}

Tamano TallerDialogo::lista(std::span<const std::string_view> textos) const {
    float ancho = 0;
    for (const std::string_view t : textos) ancho = std::max(ancho, texto(t).ancho);
    return {ancho + ANCHO_FLECHA, altoControl()};
}

Tamano TallerDialogo::botonImagen() const {
    return {altoControl(), altoControl()};
}

Tamano TallerDialogo::marcoColor() const {
    return {ANCHO_MARCO_COLOR, altoControl()};
}

Tamano TallerDialogo::botonTexto(std::string_view texto, bool conDibujo) const {
    return {this->texto(texto).ancho + ANCHO_ALREDEDOR_BOTON + (conDibujo ? ANCHO_DIBUJO : 0.0F), altoControl()};
}

}  // namespace sorvanel
