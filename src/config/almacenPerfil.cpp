#include "config/almacenPerfil.h"

#include <algorithm>
#include <utility>

#include "config/perfilINI.h"

namespace sorvanel {

struct AlmacenPerfil::Ficha {
    enum class Estado { limpia, pendiente, fallida };

    PerfilINI perfil;
    SelloArchivo sello;  // of the file as it was when read or written
    Estado estado = Estado::limpia;
    std::int64_t desde = 0;  // when the first pending write came
    bool avisada = false;
    bool fallo = false;        // the last try to write it
    bool conocida = false;     // what the file holds, or that there is none, has been seen once
    std::string disco = {};    // that
    std::string motivo = {};   // why it cannot be read now
    std::int64_t intento = 0;  // when it last could not
};

AlmacenPerfil::AlmacenPerfil(Archivos& archivos, const Reloj& reloj, Fabrica& fabrica)
    : m_archivos(archivos), m_reloj(reloj), m_tim(fabrica.crearTemporizador()) {
    m_tim->alTic([this] { tic(); });
}

AlmacenPerfil::~AlmacenPerfil() = default;

AlmacenPerfil::Ficha& AlmacenPerfil::ficha(const std::string& ruta) {
    std::unique_ptr<Ficha>& entrada = m_fichas[ruta];
    if (!entrada) {
        entrada = std::make_unique<Ficha>();
        leerDisco(ruta, *entrada);
    }
    return *entrada;
}

// Empty where it cannot be read; an absent file reads as an empty one.
std::optional<std::string> AlmacenPerfil::leerEntero(const std::string& ruta, const SelloArchivo& sello, Ficha& ficha) {
    Lectura leida = sello.tamano <= TAMANO_MAXIMO ? m_archivos.leer(ruta) : Lectura{.motivo = "es demasiado grande"};
    const std::string antes =
        std::exchange(ficha.motivo, leida.contenido || leida.ausente ? std::string() : leida.motivo);
    if (!ficha.motivo.empty() && ficha.motivo != antes) noticia("No se puede leer " + ruta + ": " + ficha.motivo);
    if (ficha.motivo.empty() && !antes.empty()) noticia("Se puede leer de nuevo " + ruta);
    ficha.intento = m_reloj.ahora();
    return leida.ausente ? std::string() : std::move(leida.contenido);
}

void AlmacenPerfil::leerDisco(const std::string& ruta, Ficha& ficha) {
    // The stamp first: what is written between the two shows as a change the next time.
    const SelloArchivo sello = m_archivos.sello(ruta);
    std::optional<std::string> contenido = leerEntero(ruta, sello, ficha);
    if (!contenido) return;
    ficha.conocida = true;
    ficha.sello = sello;
    ficha.perfil = PerfilINI(*contenido);
    ficha.disco = std::move(*contenido);
}

std::string AlmacenPerfil::leer(const std::string& ruta, std::string_view seccion, std::string_view clave) {
    return ficha(ruta).perfil.leer(seccion, clave).value_or(std::string());
}

void AlmacenPerfil::escribir(const std::string& ruta, std::string_view seccion, std::string_view clave,
                             std::string_view valor) {
    cambiar(ruta, [&](PerfilINI& perfil) { return perfil.escribir(seccion, clave, valor); });
}

void AlmacenPerfil::borrarClave(const std::string& ruta, std::string_view seccion, std::string_view clave) {
    cambiar(ruta, [&](PerfilINI& perfil) { return perfil.borrarClave(seccion, clave); });
}

void AlmacenPerfil::borrarSeccion(const std::string& ruta, std::string_view seccion) {
    cambiar(ruta, [&](PerfilINI& perfil) { return perfil.borrarSeccion(seccion); });
}

void AlmacenPerfil::cambiar(const std::string& ruta, const Cambio& cambio) {
    Ficha& f = ficha(ruta);
    if (!f.conocida) return;
    const bool cambiada = cambio(f.perfil);
    if (!cambiada && f.estado != Ficha::Estado::fallida) return;
    if (f.estado != Ficha::Estado::pendiente) {
        f.estado = Ficha::Estado::pendiente;
        f.desde = m_reloj.ahora();
    }
    programar();
}

bool AlmacenPerfil::reponer(const std::string& ruta, std::string_view bytes) {
    asentar();
    Ficha& f = ficha(ruta);
    f.perfil = PerfilINI(bytes);
    f.conocida = true;
    f.estado = Ficha::Estado::pendiente;
    f.desde = m_reloj.ahora();
    // What never reached the file need not be taken back from it.
    const bool esta = m_archivos.leer(ruta).contenido == bytes;
    const bool bien = esta || (reemplazable(ruta, f) && m_archivos.reemplazar(ruta, bytes));
    if (bien) {
        f.disco = bytes;
        anotar(ruta, f, {true, m_archivos.sello(ruta)});
    }
    programar();
    return bien;
}

void AlmacenPerfil::descartar(const std::string& ruta) {
    asentar();
    Ficha& f = ficha(ruta);
    f.estado = Ficha::Estado::limpia;
    f.avisada = f.fallo = false;
    std::erase(m_porAvisar, ruta);
    f.perfil = PerfilINI(f.disco);
    leerDisco(ruta, f);
    programar();
}

void AlmacenPerfil::refrescar(const std::string& ruta) {
    recoger(m_archivos.terminado());
    // What is under way will be what the file holds.
    if (ruta == m_escribiendo) return;
    Ficha& f = ficha(ruta);
    if (f.estado != Ficha::Estado::limpia) return;
    // Whoever holds it makes each reading wait: not with every key that is asked for.
    const bool toca = f.motivo.empty() ? m_archivos.sello(ruta) != f.sello : m_reloj.ahora() - f.intento >= RELECTURA;
    if (toca) leerDisco(ruta, f);
}

const std::string& AlmacenPerfil::ilegible(const std::string& ruta) {
    return ficha(ruta).motivo;
}

void AlmacenPerfil::alFallar(std::function<void(const std::string& ruta)> aviso) {
    m_aviso = std::move(aviso);
}

bool AlmacenPerfil::pendiente() const {
    if (!m_escribiendo.empty()) return true;
    for (const auto& [ruta, f] : m_fichas) {
        if (f->estado == Ficha::Estado::pendiente) return true;
    }
    return false;
}

void AlmacenPerfil::ocio(bool colaVacia) {
    recoger(m_archivos.terminado());
    const std::int64_t ahora = m_reloj.ahora();
    const bool descansado = ahora - m_empezado >= RETRASO_MAXIMO;
    for (auto& [ruta, f] : m_fichas) {
        if (!m_escribiendo.empty()) break;
        const bool toca = (colaVacia && descansado) || ahora - f->desde >= RETRASO_MAXIMO;
        if (f->estado == Ficha::Estado::pendiente && toca) empezar(ruta, *f);
    }
    programar();
    avisar();
}

// No tick is exact: what waits has waited long enough when one comes.
void AlmacenPerfil::tic() {
    const bool reintento = m_plazo == REINTENTO;
    const std::int64_t vencido = m_reloj.ahora() - RETRASO_MAXIMO;
    for (auto& [ruta, f] : m_fichas) {
        if (reintento && f->estado == Ficha::Estado::fallida) f->estado = Ficha::Estado::pendiente;
        f->desde = std::min(f->desde, vencido);
    }
    ocio(false);
}

// Only a change of what is waited for starts the timer anew.
void AlmacenPerfil::programar() {
    const bool hayFallida = std::any_of(m_fichas.begin(), m_fichas.end(), [](const auto& entrada) {
        return entrada.second->estado == Ficha::Estado::fallida;
    });
    const int plazo = pendiente() ? RETRASO_MAXIMO : hayFallida ? REINTENTO : 0;
    if (std::exchange(m_plazo, plazo) == plazo) return;
    m_tim->habilitado(false);
    if (plazo == 0) return;
    m_tim->intervalo(plazo);
    m_tim->habilitado(true);
}

bool AlmacenPerfil::volcar() {
    asentar();
    bool bien = true;
    for (auto& [ruta, f] : m_fichas) {
        if (f->estado == Ficha::Estado::limpia) continue;
        std::string bytes = f->perfil.bytes();
        const bool libre = reemplazable(ruta, *f);
        const bool escrita = libre && !cederAOtro(ruta, *f) && m_archivos.reemplazar(ruta, bytes);
        bien = bien && escrita;
        if (f->estado == Ficha::Estado::limpia) continue;  // it has given way
        if (escrita) f->disco = std::move(bytes);
        anotar(ruta, *f, {escrita, m_archivos.sello(ruta)});
    }
    programar();
    avisar();
    return bien;
}

// What could not be read may hold anything: it must be readable again before ours takes its place.
bool AlmacenPerfil::reemplazable(const std::string& ruta, Ficha& ficha) {
    return ficha.motivo.empty() || leerEntero(ruta, m_archivos.sello(ruta), ficha).has_value();
}

// Ours had its chance, and since then somebody has written the file. Who typed ours is told that it was not saved.
bool AlmacenPerfil::cederAOtro(const std::string& ruta, Ficha& ficha) {
    if (!ficha.fallo || m_archivos.sello(ruta) == ficha.sello) return false;
    leerDisco(ruta, ficha);
    ficha.estado = Ficha::Estado::limpia;
    ficha.fallo = ficha.avisada = false;
    m_porAvisar.push_back(ruta);
    return true;
}

void AlmacenPerfil::empezar(const std::string& ruta, Ficha& ficha) {
    if (!reemplazable(ruta, ficha)) {
        anotar(ruta, ficha, {});
        return;
    }
    if (cederAOtro(ruta, ficha)) return;
    m_empezado = m_reloj.ahora();
    m_bytes = ficha.perfil.bytes();
    m_archivos.reemplazarAparte(ruta, m_bytes);
    m_escribiendo = ruta;
    // What is written from now on waits for the next time.
    ficha.estado = Ficha::Estado::limpia;
    recoger(m_archivos.terminado());
}

// How the write beside the one thread ended; empty while it has not.
void AlmacenPerfil::recoger(const std::optional<Reemplazo>& fin) {
    if (!fin || m_escribiendo.empty()) return;
    const std::string ruta = std::exchange(m_escribiendo, {});
    Ficha& f = ficha(ruta);
    const Ficha::Estado despues = f.estado;
    if (fin->bien) f.disco = std::move(m_bytes);
    anotar(ruta, f, *fin);
    if (despues == Ficha::Estado::pendiente) f.estado = despues;
}

void AlmacenPerfil::anotar(const std::string& ruta, Ficha& ficha, const Reemplazo& fin) {
    if (fin.bien) {
        ficha.sello = fin.sello;
        ficha.estado = Ficha::Estado::limpia;
        if (ficha.avisada) noticia("Se ha guardado " + ruta);
        ficha.avisada = ficha.fallo = false;
        std::erase(m_porAvisar, ruta);  // what failed has come right before anybody was told
        return;
    }
    ficha.estado = Ficha::Estado::fallida;
    ficha.fallo = true;
    if (std::exchange(ficha.avisada, true)) return;
    noticia("No se puede guardar " + ruta);
    m_porAvisar.push_back(ruta);
}

// Last of all: whoever is told may use the store again.
void AlmacenPerfil::avisar() {
    for (const std::string& ruta : std::exchange(m_porAvisar, {})) {
        if (m_aviso) m_aviso(ruta);
    }
}

}  // namespace sorvanel
