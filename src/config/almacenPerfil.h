#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/archivos.h"
#include "platform/sistema.h"

namespace sorvanel {

class PerfilINI;

// The settings files in memory. A write is seen by every reader at once; the file follows in one
// replacement beside the one thread, when the program has nothing else to do or 100 ms later at the
// latest (the program asks through ocio()), and when volcar() is called. So an operation that writes
// many keys is one replacement of the file, and nobody who types or drags waits for the disk.
class AlmacenPerfil {
public:
    static constexpr std::int64_t RETRASO_MAXIMO = 100;  // milliseconds
    // A larger file is no settings file: it is not read, and never replaced.
    static constexpr std::size_t TAMANO_MAXIMO = std::size_t{4} << 20U;  // bytes

    AlmacenPerfil(Archivos& archivos, const Reloj& reloj);
    ~AlmacenPerfil();

    // Empty when the file, the section or the key is missing.
    std::string leer(const std::string& ruta, std::string_view seccion, std::string_view clave);
    // A value equal to the one that is there leaves the file alone.
    void escribir(const std::string& ruta, std::string_view seccion, std::string_view clave, std::string_view valor);
    void borrarClave(const std::string& ruta, std::string_view seccion, std::string_view clave);
    void borrarSeccion(const std::string& ruta, std::string_view seccion);
    // The whole file shall be that, whatever it is now: a write like any other.
    void poner(const std::string& ruta, std::string_view bytes);
    // Takes in what another program wrote to the file since, unless something of ours is not yet
    // on the disk.
    void refrescar(const std::string& ruta);

    // The file is there, but the last attempt could not read it: what is read of it here is nothing.
    bool ilegible(const std::string& ruta);

    // Told once when a file could not be written (again only after it could). The old file stands
    // and the values stay in memory, to be tried again at the next write. The notice may call back.
    void alFallar(std::function<void(const std::string& ruta)> aviso);

    // Whether ocio() has something to write or to wait for. What failed does not count until the next write.
    bool pendiente() const;
    // Called between two messages: begins to write what is pending if the queue is empty or it is time, and
    // takes in how the last write ended. While much is written, one begins each 100 ms.
    void ocio(bool colaVacia);
    // Waits until all is on the disk, also what failed before. False when it failed.
    bool volcar();
    // Waits for the write that is under way: what is put on the disk afterwards stays.
    void asentar() { recoger(m_archivos.esperar()); }
    // Forgets what is held of that file, pending writes too: the next reader reads the disk.
    void olvidar(const std::string& ruta);

private:
    struct Ficha;
    using Cambio = std::function<bool(PerfilINI&)>;

    Ficha& ficha(const std::string& ruta);
    void leerDisco(const std::string& ruta, Ficha& ficha);
    void cambiar(const std::string& ruta, Cambio cambio);
    bool legible(const std::string& ruta, Ficha& ficha);
    void empezar(const std::string& ruta, Ficha& ficha);
    void recoger(const std::optional<Reemplazo>& fin);
    void anotar(const std::string& ruta, Ficha& ficha, const Reemplazo& fin);
    void avisar();

    Archivos& m_archivos;
    const Reloj& m_reloj;
    std::map<std::string, std::unique_ptr<Ficha>> m_fichas;
    std::string m_escribiendo;  // the path of what is being written beside the one thread; empty for none
    std::int64_t m_empezado = -RETRASO_MAXIMO;
    std::vector<std::string> m_porAvisar;
    std::function<void(const std::string&)> m_aviso;
};

}  // namespace sorvanel
