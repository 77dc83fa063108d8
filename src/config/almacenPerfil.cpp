#include "config/almacenPerfil.h"

#include <utility>

#include "config/perfilINI.h"

namespace sorvanel {

struct AlmacenPerfil::Ficha {
    enum class Estado { limpia, pendiente, fallida };

    PerfilINI perfil;
    std::optional<SelloArchivo> sello;  // of the file as it was when read or written
    Estado estado = Estado::limpia;
    std::int64_t desde = 0;  // when the first pending write came
    bool avisada = false;
    // The file is there but could not be read: `perfil` holds our own writes alone and must not
    // replace it. They are kept here, to be done again on what it holds once it can be read.
    bool ilegible = false;
    std::vector<Cambio> cambios = {};
};

AlmacenPerfil::AlmacenPerfil(Archivos& archivos, const Reloj& reloj) : m_archivos(archivos), m_reloj(reloj) {}
AlmacenPerfil::~AlmacenPerfil() = default;

AlmacenPerfil::Ficha& AlmacenPerfil::ficha(const std::string& ruta) {
    std::unique_ptr<Ficha>& entrada = m_fichas[ruta];
    if (!entrada) {
        entrada = std::make_unique<Ficha>();
        leerDisco(ruta, *entrada);
    }
    return *entrada;
}

void AlmacenPerfil::leerDisco(const std::string& ruta, Ficha& ficha) {
    // The stamp first: what is written between the two shows as a change the next time.
    ficha.sello = m_archivos.sello(ruta);
    const bool cabe = !ficha.sello || ficha.sello->tamano <= TAMANO_MAXIMO;
    const std::optional<std::string> contenido = cabe ? m_archivos.leer(ruta) : std::nullopt;
    ficha.ilegible = ficha.sello && !contenido;
    ficha.perfil = PerfilINI(contenido.value_or(std::string()));
    for (const Cambio& cambio : ficha.cambios) {
        cambio(ficha.perfil);
    }
    if (!ficha.ilegible) {
        ficha.cambios.clear();
    }
}

std::string AlmacenPerfil::leer(const std::string& ruta, std::string_view seccion, std::string_view clave) {
    return ficha(ruta).perfil.leer(seccion, clave).value_or(std::string());
}

void AlmacenPerfil::escribir(const std::string& ruta, std::string_view seccion, std::string_view clave,
                             std::string_view valor) {
    cambiar(ruta, [s = std::string(seccion), c = std::string(clave), v = std::string(valor)](PerfilINI& perfil) {
        return perfil.escribir(s, c, v);
    });
}

void AlmacenPerfil::borrarClave(const std::string& ruta, std::string_view seccion, std::string_view clave) {
    cambiar(ruta,
            [s = std::string(seccion), c = std::string(clave)](PerfilINI& perfil) { return perfil.borrarClave(s, c); });
}

void AlmacenPerfil::borrarSeccion(const std::string& ruta, std::string_view seccion) {
    cambiar(ruta, [s = std::string(seccion)](PerfilINI& perfil) { return perfil.borrarSeccion(s); });
}

void AlmacenPerfil::cambiar(const std::string& ruta, Cambio cambio) {
    Ficha& f = ficha(ruta);
    const bool cambiada = cambio(f.perfil);
    if (f.ilegible) {
        // What changes nothing here may well change what the file holds.
        f.cambios.push_back(std::move(cambio));
    } else if (!cambiada && f.estado != Ficha::Estado::fallida) {
        return;
    }
    if (f.estado != Ficha::Estado::pendiente) {
        f.estado = Ficha::Estado::pendiente;
        f.desde = m_reloj.ahora();
    }
}

void AlmacenPerfil::poner(const std::string& ruta, std::string_view bytes) {
    Ficha& f = ficha(ruta);
    f.perfil = PerfilINI(bytes);
    f.ilegible = false;
    f.cambios.clear();
    f.estado = Ficha::Estado::pendiente;
    f.desde = m_reloj.ahora();
}

void AlmacenPerfil::refrescar(const std::string& ruta) {
    recoger(m_archivos.terminado());
    // What is under way will be what the file holds.
    if (ruta == m_escribiendo) return;
    Ficha& f = ficha(ruta);
    if (f.estado == Ficha::Estado::limpia && (f.ilegible || m_archivos.sello(ruta) != f.sello)) {
        leerDisco(ruta, f);
    }
}

bool AlmacenPerfil::ilegible(const std::string& ruta) {
    return ficha(ruta).ilegible;
}

void AlmacenPerfil::alFallar(std::function<void(const std::string& ruta)> aviso) {
    m_aviso = std::move(aviso);
}

bool AlmacenPerfil::pendiente() const {
    if (!m_escribiendo.empty()) return true;
    for (const auto& [ruta, f] : m_fichas) {
        if (f->estado == Ficha::Estado::pendiente) {
            return true;
        }
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
    avisar();
}

bool AlmacenPerfil::volcar() {
    asentar();
    bool bien = true;
    for (auto& [ruta, f] : m_fichas) {
        if (f->estado == Ficha::Estado::limpia) continue;
        const bool escrita = legible(ruta, *f) && m_archivos.reemplazar(ruta, f->perfil.bytes());
        anotar(ruta, *f, {escrita, escrita ? m_archivos.sello(ruta) : std::nullopt});
        bien = bien && f->estado == Ficha::Estado::limpia;
    }
    avisar();
    return bien;
}

bool AlmacenPerfil::legible(const std::string& ruta, Ficha& ficha) {
    if (ficha.ilegible) {
        leerDisco(ruta, ficha);
    }
    return !ficha.ilegible;
}

void AlmacenPerfil::empezar(const std::string& ruta, Ficha& ficha) {
    if (!legible(ruta, ficha)) {
        anotar(ruta, ficha, {});
        return;
    }
    m_empezado = m_reloj.ahora();
    m_archivos.reemplazarAparte(ruta, ficha.perfil.bytes());
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
    anotar(ruta, f, *fin);
    if (despues == Ficha::Estado::pendiente) f.estado = despues;
}

void AlmacenPerfil::anotar(const std::string& ruta, Ficha& ficha, const Reemplazo& fin) {
    if (fin.bien) {
        ficha.sello = fin.sello;
        ficha.estado = Ficha::Estado::limpia;
        ficha.avisada = false;
        std::erase(m_porAvisar, ruta);  // what failed has come right before anybody was told
        return;
    }
    ficha.estado = Ficha::Estado::fallida;
    if (!std::exchange(ficha.avisada, true)) m_porAvisar.push_back(ruta);
}

// Last of all: whoever is told may use the store again.
void AlmacenPerfil::avisar() {
    for (const std::string& ruta : std::exchange(m_porAvisar, {})) {
        if (m_aviso) m_aviso(ruta);
    }
}

void AlmacenPerfil::olvidar(const std::string& ruta) {
    if (m_escribiendo == ruta) asentar();
    std::erase(m_porAvisar, ruta);
    m_fichas.erase(ruta);
}

}  // namespace sorvanel
