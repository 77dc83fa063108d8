#pragma once

#include <future>

#include "platform/archivos.h"

namespace sorvanel {

// Files by the system's own calls. Where another program (a virus scanner, a backup) holds a file
// for a moment, reading and replacing are tried again, for some 30 ms in all at the most.
class ArchivosWin : public Archivos {
public:
    // A file above 16 MiB counts as one that cannot be read.
    Lectura leer(const std::string& ruta) override;
    bool crearVacio(const std::string& ruta) override;
    // By a rename over the old file, which is one step for the file system: a kill or a power cut
    // at any moment leaves one of the two, whole. What is written beside it is called ruta + "~".
    bool reemplazar(const std::string& ruta, std::string_view contenido) override;
    // On a thread of its own, which is waited for before this goes.
    void reemplazarAparte(const std::string& ruta, std::string contenido) override;
    std::optional<Reemplazo> terminado() override;
    std::optional<Reemplazo> esperar() override;
    SelloArchivo sello(const std::string& ruta) override;
    bool crearCarpeta(const std::string& ruta) override;
    std::string unir(const std::string& carpeta, const std::string& nombre) const override;

private:
    std::future<Reemplazo> m_aparte;
};

}  // namespace sorvanel
