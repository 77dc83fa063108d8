#include "app/barraBotones.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr float SEPARACION = aTwips(4);
constexpr float ALTO_BARRA = aTwips(32);
constexpr float ALTO_BOTON = aTwips(26);
constexpr float ANCHO_BOTON = aTwips(52);
constexpr float ANCHO_SOLO_DIBUJO = aTwips(44);
constexpr float ALREDEDOR = aTwips(44);  // of a caption: the picture, and the margins between and outside
constexpr float ANCHO_VERSION = aTwips(64);
constexpr Color COLOR_BARRA = rgb(0xE6, 0xEA, 0xEE);
constexpr Color COLOR_FILO = rgb(0xB4, 0xBD, 0xC6);
constexpr Color COLOR_VERSION = rgb(0x5A, 0x65, 0x70);
constexpr Color COLOR_AVISO = rgb(0x1F, 0x29, 0x33);

constexpr const char* LETRA = "Segoe UI";
// Of what the bar says, from the largest that it has room for.
constexpr std::array LETRAS_AVISO{aTwips(21), aTwips(18), aTwips(15)};
constexpr float LETRA_DETALLE = aTwips(15);
constexpr float ALREDEDOR_AVISO = aTwips(14);  // free on both sides, and between its two parts

struct TextoAviso {
    const char* titular;
    const char* detalle;     // what to press
    const char* breve = "";  // instead of the first where that has no room
};

constexpr std::array<TextoAviso, 5> AVISOS{{
    {"", ""},
    {"Leyendo la configuración", ""},
    {"Configurando", "acepte o cancele"},
    {"Cambios cancelados: acepte para volver", "con la marca verde", "Cancelado: acepte"},
    {"En pausa", "el triángulo verde pone en marcha, la rueda configura"},
}};

struct Definicion {
    IdControl id;
    Dibujo dibujo;
    const char* nombre;
    std::array<Estado, 2> en;  // where it is seen
};

constexpr std::array EN_CONFIGURACION{Estado::configurando, Estado::configurando};
constexpr std::array EN_PAUSA{Estado::pausa, Estado::pausa};
constexpr std::array EN_MARCHA{Estado::marcha, Estado::marcha};

// In tab order: the tools from left to right, which have room for their names, then the control of the run.
constexpr std::array<Definicion, 10> BOTONES{{
    {IdControl::botDise, Dibujo::parrilla, "Diseño de parrilla y formatos", EN_CONFIGURACION},
    {IdControl::botVisores, Dibujo::visores, "Definir visores", EN_CONFIGURACION},
    {IdControl::botSize, Dibujo::tamano, "Tamaño y posición de parrilla", EN_CONFIGURACION},
    {IdControl::botMensaje, Dibujo::mensaje, "Mensaje auxiliar", EN_CONFIGURACION},
    {IdControl::botCfg, Dibujo::ajustes, "Configurar", EN_PAUSA},
    {IdControl::botRun, Dibujo::marcha, "Poner en marcha", EN_PAUSA},
    {IdControl::botPau, Dibujo::pausa, "Pausar", EN_MARCHA},
    {IdControl::botOff, Dibujo::apagar, "Cerrar el programa", {Estado::pausa, Estado::marcha}},
    {IdControl::botOk, Dibujo::aceptar, "Aceptar la configuración", EN_CONFIGURACION},
    {IdControl::botCan, Dibujo::cancelar, "Cancelar los cambios de configuración", EN_CONFIGURACION},
}};

constexpr std::size_t HERRAMIENTAS = 4;

}  // namespace

BarraBotones::BarraBotones(Formulario& formulario)
    : m_formulario(formulario),
      m_picBot(formulario.crearSuperficie(IdControl::picBot, 0)),
      m_lbVer(formulario.crearSuperficie(IdControl::lbVer, 0)),
      m_lbEstado(formulario.crearSuperficie(IdControl::lbEstado, 0)) {
    for (std::size_t i = 0; i < BOTONES.size(); ++i) {
        m_botones[i] = formulario.crear<Boton>(BOTONES[i].id);
        m_botones[i]->estilo(EstiloBoton::barra);
        m_botones[i]->dibujo(BOTONES[i].dibujo);
        m_botones[i]->nombre(BOTONES[i].nombre);
    }
}

Boton& BarraBotones::boton(IdControl id) {
    std::size_t i = 0;
    while (BOTONES[i].id != id) ++i;
    return *m_botones[i];
}

void BarraBotones::alPulsar(IdControl id, std::function<void()> accion) {
    boton(id).alActuar(std::move(accion));
}

void BarraBotones::version(const std::string& texto) {
    m_version = texto;
}

void BarraBotones::incidencia(const std::string& texto) {
    m_lbVer->sugerencia(texto.substr(0, texto.find_last_not_of('\n') + 1));
}

void BarraBotones::disponer(float ancho, float alto) {
    m_picBot->colocar({0, alto - ALTO_BARRA, ancho, ALTO_BARRA});
    m_arriba = alto - ALTO_BARRA + (ALTO_BARRA - ALTO_BOTON) / 2;
    pintarFondo();
    m_picBot->mostrar(true);

    disponerDerecha(ancho);
    const float izquierdaCfg = ancho - 3 * (ANCHO_BOTON + SEPARACION);
    m_finVersion = izquierdaCfg - 2 * SEPARACION;
    m_finHerramientas = disponerHerramientas(m_finVersion - ANCHO_VERSION);
    m_inicioVersion = std::max(m_finHerramientas, m_finVersion - ANCHO_VERSION);
    pintarVersion();
    situarAviso();
}

// Pause stands where run stands, and in configuration accept and cancel stand where run and close do.
void BarraBotones::disponerDerecha(float ancho) {
    const float off = ancho - ANCHO_BOTON - SEPARACION;
    const float run = off - ANCHO_BOTON - SEPARACION;
    const float cfg = run - ANCHO_BOTON - SEPARACION;
    const auto poner = [&](IdControl id, float x) { boton(id).colocar({x, m_arriba, ANCHO_BOTON, ALTO_BOTON}); };
    poner(IdControl::botOff, off);
    poner(IdControl::botRun, run);
    poner(IdControl::botPau, run);
    poner(IdControl::botCfg, cfg);
    poner(IdControl::botCan, off);
    poner(IdControl::botOk, run);
}

// With their captions where all of them fit left of the limit, else with their pictures alone.
float BarraBotones::disponerHerramientas(float limite) {
    std::array<float, HERRAMIENTAS> anchos{};
    float total = SEPARACION;
    for (std::size_t i = 0; i < HERRAMIENTAS; ++i) {
        anchos[i] = m_formulario.medir(BOTONES[i].nombre).ancho + ALREDEDOR;
        total += anchos[i] + SEPARACION;
    }
    const bool caben = total <= limite;
    float x = SEPARACION;
    for (std::size_t i = 0; i < HERRAMIENTAS; ++i) {
        const float propio = caben ? anchos[i] : ANCHO_SOLO_DIBUJO;
        m_botones[i]->texto(caben ? BOTONES[i].nombre : "");
        m_botones[i]->colocar({x, m_arriba, propio, ALTO_BOTON});
        x += propio + SEPARACION;
    }
    return x;
}

BarraBotones::Colores BarraBotones::colores() const {
    const auto suyos = m_formulario.colores();
    if (suyos) return {suyos->fondo, suyos->texto, suyos->texto, suyos->texto};
    return {COLOR_BARRA, COLOR_FILO, COLOR_AVISO, COLOR_VERSION};
}

void BarraBotones::repintar() {
    pintarFondo();
    pintarVersion();
    situarAviso();
}

void BarraBotones::pintarFondo() {
    const Rectangulo barra = m_picBot->lugar();
    m_picBot->colorFondo(colores().fondo);
    m_picBot->limpiar();
    m_picBot->caja({0, 0, barra.ancho, aTwips(1)}, colores().filo);
}

void BarraBotones::pintarVersion() {
    const float ancho = m_finVersion - m_inicioVersion;
    if (ancho <= 0) {
        m_lbVer->mostrar(false);
        return;
    }
    m_lbVer->colocar({m_inicioVersion, m_arriba, ancho, ALTO_BOTON});
    m_lbVer->colorFondo(colores().fondo);
    m_lbVer->limpiar();
    m_lbVer->fuente({LETRA, aTwips(13), false, false, false});
    const MedidaTexto medida = m_lbVer->medir(m_version);
    m_lbVer->imprimir(ancho - medida.ancho, (ALTO_BOTON - medida.alto) / 2, m_version, colores().menor);
    m_lbVer->leyenda(m_version);
    m_lbVer->mostrar(true);
}

// As much of the text as that width takes, with dots behind it where it was cut; empty where that would say nothing.
std::string BarraBotones::recortar(std::string texto, float ancho) const {
    if (m_lbEstado->medir(texto).ancho <= ancho) return texto;
    constexpr const char* PUNTOS = "…";
    constexpr std::size_t LEGIBLE = 6;
    while (texto.size() > LEGIBLE) {
        // A letter may take several bytes: all of them go.
        while (!texto.empty() && (texto.back() & 0xC0) == 0x80) texto.pop_back();
        texto.pop_back();
        if (m_lbEstado->medir(texto + PUNTOS).ancho <= ancho) return texto + PUNTOS;
    }
    return {};
}

// In the middle of what the buttons leave: the tools' room too, where they are not seen.
void BarraBotones::situarAviso() {
    const TextoAviso& dicho = AVISOS[static_cast<std::size_t>(m_aviso)];
    const float desde = (m_botones[0]->visible() ? m_finHerramientas : SEPARACION) + ALREDEDOR_AVISO;
    const float libre = m_inicioVersion - ALREDEDOR_AVISO - desde;
    m_lbEstado->leyenda(dicho.titular);
    m_lbEstado->mostrar(*dicho.titular != '\0' && libre > 0);
    if (!m_lbEstado->visible()) return;
    m_lbEstado->colocar({desde, m_arriba, libre, ALTO_BOTON});
    m_lbEstado->colorFondo(colores().fondo);
    m_lbEstado->limpiar();
    pintarAviso(dicho.titular, dicho.breve, dicho.detalle, libre);
}

void BarraBotones::pintarAviso(const std::string& titular, const std::string& breve, const std::string& detalle,
                               float libre) {
    Fuente grande{LETRA, 0, true, false, false};
    for (const float alto : LETRAS_AVISO) {
        grande.alto = alto;
        m_lbEstado->fuente(grande);
        if (m_lbEstado->medir(titular).ancho <= libre) break;
    }
    if (!breve.empty() && m_lbEstado->medir(titular).ancho > libre) return pintarAviso(breve, {}, detalle, libre);
    const std::string escrito = recortar(titular, libre);
    const MedidaTexto medida = m_lbEstado->medir(escrito);
    m_lbEstado->fuente({LETRA, LETRA_DETALLE, false, false, false});
    const MedidaTexto menor = m_lbEstado->medir(detalle);
    const float todo = medida.ancho + ALREDEDOR_AVISO + menor.ancho;
    const bool conDetalle = !detalle.empty() && todo <= libre;
    const float x = (libre - (conDetalle ? todo : medida.ancho)) / 2;
    if (conDetalle)
        m_lbEstado->imprimir(x + todo - menor.ancho, (ALTO_BOTON - menor.alto) / 2, detalle, colores().menor);
    m_lbEstado->fuente(grande);
    m_lbEstado->imprimir(x, (ALTO_BOTON - medida.alto) / 2, escrito, colores().texto);
}

void BarraBotones::avisar(Aviso aviso) {
    m_aviso = aviso;
    situarAviso();
}

void BarraBotones::hundido(IdControl id, bool si) {
    boton(id).aspecto(si ? AspectoBoton::hundido : AspectoBoton::normal);
}

void BarraBotones::estado(Estado estado) {
    // First what appears: the keyboard's focus then always finds a button to go to.
    for (const bool aparece : {true, false}) {
        for (std::size_t i = 0; i < BOTONES.size(); ++i) {
            const auto& en = BOTONES[i].en;
            if ((std::find(en.begin(), en.end(), estado) != en.end()) == aparece) m_botones[i]->mostrar(aparece);
        }
    }
}

void BarraBotones::refrescar() {
    m_picBot->refrescar();
}

}  // namespace sorvanel
