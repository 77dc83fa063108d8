#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/archivos.h"
#include "platform/sistema.h"

namespace sorvanel {

class PerfilINI;

// The settings files in memory. A write is seen by every reader at once; the file follows in one
// replacement beside the one thread, when the program has nothing else to do (it tells so through ocio())
// or 100 ms later at the latest, and when volcar() is called. So an operation that writes many keys is one
// replacement of the file, and nobody who types or drags waits for the disk. A replacement that fails is
// tried again every five seconds.
//
// A file that is there but cannot be read is never taken for an empty one: what was read of it before
// stays, and nothing replaces it until it can be read again. What somebody else has put there while ours
// could not be written is newer than ours, and counts.
class AlmacenPerfil {
public:
    static constexpr int RETRASO_MAXIMO = 100;  // milliseconds
    static constexpr int REINTENTO = 5000;      // milliseconds
    static constexpr int RELECTURA = 200;       // milliseconds, while it cannot be read
    // A larger file is no settings file: it cannot be read, and so is never replaced.
    static constexpr std::size_t TAMANO_MAXIMO = std::size_t{4} << 20U;  // bytes

    AlmacenPerfil(Archivos& archivos, const Reloj& reloj, Fabrica& fabrica);
    ~AlmacenPerfil();

    // Empty when the file, the section or the key is missing.
    std::string leer(const std::string& ruta, std::string_view seccion, std::string_view clave);
    // A value equal to the one that is there leaves the file alone. While nobody knows what the file holds,
    // since it could not be read yet, nothing can be written to it.
    void escribir(const std::string& ruta, std::string_view seccion, std::string_view clave, std::string_view valor);
    void borrarClave(const std::string& ruta, std::string_view seccion, std::string_view clave);
    void borrarSeccion(const std::string& ruta, std::string_view seccion);
    // The whole file shall be that, whatever was pending: on the disk when it answers yes. Else every reader finds
    // it all the same, and the file follows when it can.
    bool reponer(const std::string& ruta, std::string_view bytes);
    // Drops what is pending: what the file holds counts again.
    void descartar(const std::string& ruta);
    // Takes in what another program wrote to the file since, unless something of ours is not yet
    // on the disk.
    void refrescar(const std::string& ruta);

    // Why the last attempt could not read the file, in the user's words; empty when it could, or there is none.
    const std::string& ilegible(const std::string& ruta);

    // Told once when a file could not be written (again only after it could). The old file stands
    // and the values stay in memory. The notice may call back.
    void alFallar(std::function<void(const std::string& ruta)> aviso);
    // Told once, in the operator's words, when a file cannot be read or written, and when it can again. It must not
    // call back.
    void alSuceder(std::function<void(const std::string& que)> noticia) { m_noticia = std::move(noticia); }

    // Whether something waits to be written, or is being written. What failed does not count until its next try.
    bool pendiente() const;
    // Called between two messages: begins to write what is pending if the queue is empty or it is time, and
    // takes in how the last write ended. While much is written, one begins each 100 ms.
    void ocio(bool colaVacia);
    // Waits until all is on the disk, also what failed before. False when it failed.
    bool volcar();
    // Waits for the write that is under way: what is put on the disk afterwards stays.
    void asentar() { recoger(m_archivos.esperar()); }

private:
    struct Ficha;
    using Cambio = std::function<bool(PerfilINI&)>;

    Ficha& ficha(const std::string& ruta);
    std::optional<std::string> leerEntero(const std::string& ruta, const SelloArchivo& sello, Ficha& ficha);
    void leerDisco(const std::string& ruta, Ficha& ficha);
    void cambiar(const std::string& ruta, const Cambio& cambio);
    bool reemplazable(const std::string& ruta, Ficha& ficha);
    bool cederAOtro(const std::string& ruta, Ficha& ficha);
    void tic();
    void programar();
    void empezar(const std::string& ruta, Ficha& ficha);
    void recoger(const std::optional<Reemplazo>& fin);
    void anotar(const std::string& ruta, Ficha& ficha, const Reemplazo& fin);
    void noticia(const std::string& que) const {
        if (m_noticia) m_noticia(que);
    }
    void avisar();

    Archivos& m_archivos;
    const Reloj& m_reloj;
    // For what ocio() has left: nobody calls it while the queue sleeps, nor in the loops of boxes and menus.
    const std::unique_ptr<Temporizador> m_tim;
    int m_plazo = 0;  // what the timer is set to; 0: it is off
    std::map<std::string, std::unique_ptr<Ficha>> m_fichas;
    std::string m_escribiendo;  // the path of what is being written beside the one thread; empty for none
    std::string m_bytes;        // what is being written
    std::int64_t m_empezado = -RETRASO_MAXIMO;
    std::vector<std::string> m_porAvisar;
    std::function<void(const std::string&)> m_aviso;
    std::function<void(const std::string&)> m_noticia;
};

}  // namespace sorvanel
