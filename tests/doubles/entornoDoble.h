#pragma once

#include <string>

#include "app/entorno.h"
#include "config/almacenPerfil.h"
#include "doubles/archivosDoble.h"
#include "doubles/bitacoraDoble.h"
#include "doubles/fabricaDoble.h"
#include "doubles/relojDoble.h"
#include "doubles/sistemaDoble.h"
#include "screen/oScreen.h"

namespace sorvanel {

// A whole outside for one test. It must outlive the objects that are given its `entorno`.
struct EntornoDoble {
    ProgramaDoble programa;
    ArchivosDoble archivos;
    RelojDoble reloj;
    FabricaDoble fabrica{reloj};
    AlmacenPerfil perfil{archivos, reloj, fabrica};
    comun com{programa, archivos, perfil};
    MonitoresDoble monitores;
    CursorDoble cursor;
    AvisosDoble avisos;
    ColaDoble cola;
    ReposoDoble reposo;
    BitacoraDoble bitacora;
    Entorno entorno{programa, com, monitores, fabrica, reloj, cursor, avisos, cola, reposo, bitacora};

    EntornoDoble() {
        perfil.alSuceder([this](const std::string& que) { bitacora.anotar(que); });
    }
    EntornoDoble(const EntornoDoble&) = delete;
    EntornoDoble& operator=(const EntornoDoble&) = delete;

    std::string rutaINI() const { return com.rutaINI(); }
    oScreen pantalla() { return {com, monitores}; }
    // The settings file becomes that text; what was held of the old one is forgotten.
    void ini(const std::string& texto) {
        archivos.poner(rutaINI(), texto);
        perfil.descartar(rutaINI());
    }
    // The settings file's text after what is pending was written.
    std::string ini() {
        perfil.volcar();
        return archivos.contenido(rutaINI());
    }
    // One key as every reader sees it now.
    std::string valor(const std::string& seccion, const std::string& clave) {
        return perfil.leer(rutaINI(), seccion, clave);
    }
    void valor(const std::string& seccion, const std::string& clave, const std::string& texto) {
        perfil.escribir(rutaINI(), seccion, clave, texto);
    }
};

}  // namespace sorvanel
