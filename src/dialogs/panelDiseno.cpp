#include "dialogs/panelDiseno.h"

#include <algorithm>
#include <string>
#include <utility>

#include "display/disenoVisor.h"

namespace sorvanel {

namespace {

constexpr float ENTRE_FILAS = aTwips(5);
constexpr const char* TEXTO_COPIAR = "Copiar";
constexpr const char* TEXTO_PEGAR = "Pegar";

}  // namespace

PanelDiseno::PanelDiseno(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos)
    : m_taller(taller), m_com(com), m_datos(std::move(datos)) {
    m_frDise = taller.marco(IdControl::frDise, 0, "Diseño particular");
    m_titulo = taller.rotuloGrupo({});
    m_imDesf = taller.botonImagen(IdControl::imDesf, 0, Dibujo::plegar, "Cerrar el diseño particular");
    m_imDesf->alActuar([this] { m_datos.alCerrar(); });
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        m_filas[i].casilla = taller.casilla(CAMPOS[i].casilla, 0, std::string(CAMPOS[i].propio),
                                            "Marcada, este visor tiene un valor propio; si no, el del diseño común");
        m_filas[i].casilla->alActuar([this] { mostrarPropios(); });
    }
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        m_filas[i].campo = crearCampo(sistema, CAMPOS[i]);
        if (CAMPOS[i].rasgo != Rasgo::anchoEtiqueta) continue;
        m_anchoComun = taller.rotulo(std::to_string(diseñoVisor(com).anchoEtiqueta()) + " (común)");
    }
    m_previa = std::make_unique<VistaPrevia>(taller);
    crearBotones();
    abierto(false);
}

void PanelDiseno::crearBotones() {
    m_botCopiar = m_taller.botonTexto(IdControl::botCopiar, 0, TEXTO_COPIAR,
                                      "Copiar el diseño de este visor, para dárselo a otro");
    m_botCopiar->alActuar([this] { copiar(); });
    m_botPegar = m_taller.botonTexto(IdControl::botPegar, 0, TEXTO_PEGAR, "Dar a este visor el diseño copiado de otro");
    m_botPegar->alActuar([this] { pegar(); });
    m_botPegar->habilitar(false);
}

void PanelDiseno::copiar() {
    const visor* const v = m_datos.actual();
    if (v == nullptr) return;
    m_copiado = leer(*v);
    m_botPegar->sugerencia("Dar a este visor el diseño copiado del #" + std::to_string(m_numero));
    m_botPegar->habilitar(true);
}

void PanelDiseno::pegar() {
    visor* const v = m_datos.actual();
    if (v == nullptr || !m_copiado) return;
    dar(*v, *m_copiado);
    cargar(m_numero, *v);
}

std::unique_ptr<CampoAspecto> PanelDiseno::crearCampo(DialogosSistema& sistema, const FilaCampo& fila) {
    CampoAspecto::Datos datos{fila, true, {}, {}};
    datos.actual = [this, &fila] {
        const visor* const v = m_datos.actual();
        return v != nullptr ? v->efectivo(fila.rasgo) : ValorRasgo();
    };
    datos.alCambiar = [this, &fila](const ValorRasgo& valor) {
        visor* const v = m_datos.actual();
        if (v == nullptr) return;
        v->propio(fila.rasgo, valor);
        m_previa->aspecto(v->aspecto());
    };
    return std::make_unique<CampoAspecto>(m_taller, sistema, m_com, std::move(datos));
}

void PanelDiseno::cargar(std::int16_t numero, const visor& v) {
    m_numero = numero;
    m_titulo->texto("Diseño particular #" + std::to_string(numero));
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        m_filas[i].casilla->marcada(!vacio(v.propio(CAMPOS[i].rasgo)));
        m_filas[i].campo->mostrarValor(v.efectivo(CAMPOS[i].rasgo));
    }
    mostrarPropios();
    m_previa->aspecto(v.aspecto());
}

void PanelDiseno::guardar(visor& v) const {
    dar(v, leer(v));
}

ValoresRasgos PanelDiseno::leer(const visor& v) const {
    ValoresRasgos valores;
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        const auto& [casilla, campo] = m_filas[i];
        if (casilla->marcada()) valores[CAMPOS[i].rasgo] = campo->leer(v.efectivo(CAMPOS[i].rasgo));
    }
    return valores;
}

// Each write lays the display out anew: only what changes is written.
void PanelDiseno::dar(visor& v, const ValoresRasgos& valores) const {
    for (const FilaCampo& fila : CAMPOS) {
        if (valores[fila.rasgo] != v.propio(fila.rasgo)) v.propio(fila.rasgo, valores[fila.rasgo]);
    }
}

void PanelDiseno::abierto(bool si) {
    m_abierto = si;
    m_frDise->mostrar(si);
    m_titulo->mostrar(si);
    m_imDesf->mostrar(si);
    for (const Fila& fila : m_filas) fila.casilla->mostrar(si);
    m_previa->mostrar(si);
    m_botCopiar->mostrar(si);
    m_botPegar->mostrar(si);
    mostrarPropios();
}

void PanelDiseno::mostrarPropios() {
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        const auto& [casilla, campo] = m_filas[i];
        const bool propio = casilla->marcada();
        if (!m_abierto || !propio) cederFoco(campo->teclado(), *casilla);
        campo->mostrar(m_abierto && propio);
        if (CAMPOS[i].rasgo == Rasgo::anchoEtiqueta) m_anchoComun->mostrar(m_abierto && !propio);
    }
}

// What stands in one place is never seen at the same time.
Pieza PanelDiseno::comoPieza() {
    Rejilla cabecera(aTwips(4));
    cabecera.estirar(0);
    cabecera.poner(0, 0, aLoAncho(pieza(*m_titulo, m_taller.textoGrupo("Diseño particular #64"))));
    cabecera.poner(0, 1, pieza(*m_botCopiar, m_taller.botonTexto(TEXTO_COPIAR)));
    cabecera.poner(0, 2, pieza(*m_botPegar, m_taller.botonTexto(TEXTO_PEGAR)));
    cabecera.poner(0, 3, pieza(*m_imDesf, m_taller.botonImagen()));
    Rejilla filas(SEPARACION, ENTRE_FILAS);
    filas.poner(0, 0, cabecera.comoPieza(), 2);
    int lugar = 0;
    for (std::size_t i = 0; i < CAMPOS.size(); ++i) {
        filas.poner(++lugar, 0, pieza(*m_filas[i].casilla, m_taller.casilla(CAMPOS[i].propio)));
        filas.poner(lugar, 1, m_filas[i].campo->comoPieza());
        if (CAMPOS[i].rasgo == Rasgo::anchoEtiqueta) filas.poner(lugar, 1, m_taller.piezaRotulo(*m_anchoComun));
    }
    filas.poner(++lugar, 0, m_previa->comoPieza(), 2);
    return panel(*m_frDise, filas.comoPieza());
}

void PanelDiseno::anadirTeclado(std::vector<Control*>& orden) const {
    orden.insert(orden.end(), {m_botCopiar.get(), m_botPegar.get(), m_imDesf.get()});
    for (const auto& [casilla, campo] : m_filas) {
        orden.push_back(casilla.get());
        for (Control* const c : campo->teclado()) orden.push_back(c);
    }
}

bool PanelDiseno::tieneFoco() const {
    std::vector<Control*> controles;
    anadirTeclado(controles);
    return std::any_of(controles.begin(), controles.end(), [](const Control* c) { return c->tieneFoco(); });
}

}  // namespace sorvanel
